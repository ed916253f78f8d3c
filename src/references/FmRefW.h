// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ColourScheme.h"
#include "references/RegisterEditor.h"
#include "ui/TitledWindow.h"

#include <functional>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace tavrel {

struct FmRefWContext
{
    Language language;
    ColourScheme colours;
    RegisterEditor::Context editing;
    // A letter was replaced on the lines.
    std::function<void()> letterReplaced;
    // Of a reference that is to be added; usually none.
    std::string newLetter = {};
};

// The register of WADs and letters. Changes are in memory at once; who opens the window writes the file when
// it has closed.
class FmRefW : public TitledWindow
{
    Q_OBJECT

public:
    FmRefW(QWidget* parent, const FmRefWContext& context);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void layOut();
    void connectControls();
    void showCaptions();
    void fillList();
    QString shownRow(const WadReference& reference) const;
    void firstShown();
    void showFields(const WadReference& fields);
    void showFocus();
    void showInfo();
    void selectRow(int row);
    WadReference typedFields() const;

    void rowClicked();
    void rowReached();
    void chooseWad();
    void addReference();
    void modifyReference();
    void deleteReference();
    void eraseInputs();
    void addOrModify();
    void correctLetter();

    FmRefWContext m_context;
    RegisterEditor m_editor;
    QListWidget* m_list;
    QLineEdit* m_wad;
    QLineEdit* m_letter;
    QLineEdit* m_title;
    QLabel* m_info;
    QPushButton* m_choose;
    QPushButton* m_new;
    QPushButton* m_modify;
    QPushButton* m_delete;
    QPushButton* m_erase;
    QPushButton* m_stop;
    bool m_wasShown = false;
};

} // namespace tavrel
