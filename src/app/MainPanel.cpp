// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainPanel.h"

#include <QStyle>
#include <QVariant>
#include <QWidget>

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

bool MainPanel::acceptValues() const
{
    if (!selection().accept(dialogs())) {
        return false;
    }
    say(selection().editor().report());
    return true;
}

void drawAttention(QWidget& control, bool wanted)
{
    if (control.property("attention").toBool() != wanted) {
        control.setProperty("attention", wanted);
        control.style()->unpolish(&control);
        control.style()->polish(&control);
    }
}

} // namespace tavrel
