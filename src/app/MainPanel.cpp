// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainPanel.h"

#include <QPushButton>
#include <QStyle>
#include <QVariant>

namespace tavrel {

MainPanel::MainPanel(const PanelContext& context) : m_context(context)
{
    m_context.session.addObserver(*this);
    m_context.selection.addObserver(*this);
}

MainPanel::~MainPanel()
{
    m_context.selection.removeObserver(*this);
    m_context.session.removeObserver(*this);
}

void drawAttention(QPushButton& button, bool wanted)
{
    if (button.property("attention").toBool() != wanted) {
        button.setProperty("attention", wanted);
        button.style()->unpolish(&button);
        button.style()->polish(&button);
    }
}

} // namespace tavrel
