// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "samples/SamplePlayer.h"
#include "session/Selection.h"
#include "session/Session.h"

class QWidget;

namespace tavrel {

struct FindingMarks;

// The line at the bottom that says what a command did.
class Status
{
public:
    Status() = default;
    Status(const Status&) = delete;
    Status& operator=(const Status&) = delete;
    virtual ~Status() = default;

    virtual void say(const BilingualText& text) = 0;
};

// What every panel of the main window sees.
struct PanelContext
{
    Session& session;
    Selection& selection;
    Dialogs& dialogs;
    SamplePlayer& player;
    Status& status;
};

// A part of the main window with its own controls, captions and rules of enabling. It follows the session and
// the selection, and knows no other panel.
class MainPanel : public SessionObserver, public SelectionObserver
{
public:
    explicit MainPanel(const PanelContext& context);
    MainPanel(const MainPanel&) = delete;
    MainPanel& operator=(const MainPanel&) = delete;
    ~MainPanel() override;

    virtual void showLanguage(Language language) = 0;
    // The colours of the main window's lists and texts.
    virtual void paintWith(const ColourPair& /*pair*/) {}
    // They live as long as the panel.
    virtual void showMarks(const FindingMarks& /*marks*/) {}

protected:
    const PanelContext& context() const { return m_context; }
    Session& session() const { return m_context.session; }
    Selection& selection() const { return m_context.selection; }
    Dialogs& dialogs() const { return m_context.dialogs; }
    Language language() const { return session().settings().language; }
    void say(const BilingualText& text) const { m_context.status.say(text); }
    // "Accept values", with what it did to several lines. False when it was refused.
    bool acceptValues() const;

private:
    PanelContext m_context;
};

// A look that the style sheet knows by this name.
void drawAttention(QWidget& control, bool wanted);

// While it lives, a flag is up.
class Flagged
{
public:
    explicit Flagged(bool& flag) : m_flag(flag), m_before(flag) { m_flag = true; }
    Flagged(const Flagged&) = delete;
    Flagged& operator=(const Flagged&) = delete;
    ~Flagged() { m_flag = m_before; }

private:
    bool& m_flag;
    bool m_before;
};

} // namespace tavrel
