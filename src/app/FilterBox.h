// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "session/ListedSounds.h"

#include <QWidget>

class QComboBox;
class QLineEdit;

namespace tavrel {

// What the list of sounds is filtered by: words, and one of the filters that are ready. In amber while they
// may hide sounds.
class FilterBox : public QWidget
{
    Q_OBJECT

public:
    FilterBox();

    void showLanguage(Language language);
    void focusWords();

    SoundFilter words() const;
    ReadyFilter ready() const;
    // That filter, and no words.
    void choose(ReadyFilter filter);
    // False when there was nothing to take off.
    bool clear();

Q_SIGNALS:
    void changed();
    // Down or Enter, on the way to the list.
    void done();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void tellChange();

    QLineEdit* m_words;
    QComboBox* m_ready;
};

} // namespace tavrel
