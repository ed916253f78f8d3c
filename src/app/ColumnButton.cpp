// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ColumnButton.h"

#include "base/CodePage.h"
#include "ui/Icons.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QMenu>

namespace tavrel {

namespace {

std::string optionName(SoundColumn column)
{
    return lowerCase(columnTitle(column).english);
}

} // namespace

ColumnButton::ColumnButton(Options& options) : m_options(options)
{
    setObjectName("CdColumns");
    setIcon(glyphIcon(Glyph::ViewWad, theme::text));
    setPopupMode(QToolButton::InstantPopup);
    setMenu(new QMenu(this));
    const std::string remembered = "," + options.text(options::listColumns).value_or("") + ",";
    for (const SoundColumn column :
         {SoundColumn::Samples, SoundColumn::Values, SoundColumn::Flags, SoundColumn::Letters}) {
        QAction* const action = menu()->addAction(QString());
        action->setCheckable(true);
        action->setChecked(remembered.find("," + optionName(column) + ",") != std::string::npos);
        connect(action, &QAction::toggled, this, &ColumnButton::remember);
        m_actions.emplace_back(column, action);
    }
}

void ColumnButton::showLanguage(Language language)
{
    const QString title = inLanguage({"Columns", "Colonnes"}, language);
    setToolTip(title);
    setAccessibleName(title);
    for (const auto& [column, action] : m_actions) {
        action->setText(inLanguage(columnTitle(column), language));
    }
}

std::set<SoundColumn> ColumnButton::columns() const
{
    std::set<SoundColumn> columns;
    for (const auto& [column, action] : m_actions) {
        if (action->isChecked()) {
            columns.insert(column);
        }
    }
    return columns;
}

void ColumnButton::remember()
{
    std::string names;
    for (const SoundColumn column : columns()) {
        names += (names.empty() ? "" : ",") + optionName(column);
    }
    m_options.set(options::listColumns, names);
    Q_EMIT changed();
}

} // namespace tavrel
