// SPDX-License-Identifier: GPL-3.0-or-later
// Works on a catalogue, applies once on the way, and ends without a word, as by a crash. The tests watch what
// can be recovered when one of its system calls fails, or is the last one.
#include "YesToAll.h"
#include "session/Session.h"

#include <cstdio>
#include <string>

namespace {

class Walk
{
public:
    explicit Walk(tavrel::Session& session) : m_session(session) {}

    void change(std::size_t number)
    {
        {
            const tavrel::Step step(m_session.catalogue(), {"Step", "Étape"});
            const std::string line = "STEP" + std::to_string(number) + ":";
            m_troubled |= m_session.catalogue().setCurrentLine(number, line).has_value();
        }
        note();
    }
    void undo()
    {
        m_troubled |= m_session.undo().problem.has_value();
        note();
    }
    void redo()
    {
        m_troubled |= m_session.redo().problem.has_value();
        note();
    }
    void apply()
    {
        YesToAll dialogs;
        m_troubled |= !m_session.apply(dialogs);
        note();
    }
    bool isTroubled() const { return m_troubled; }

private:
    // So many steps are over.
    void note()
    {
        m_troubled |= m_session.recoveryProblem().has_value();
        std::puts("step");
        std::fflush(stdout);
    }

    tavrel::Session& m_session;
    bool m_troubled = false;
};

} // namespace

// 0 when all was done and kept, 1 when the user would have been told of a problem, 3 when it could not begin.
int main(int argc, char* argv[])
{
    if (argc != 2) {
        std::puts("Usage: session_once PROGRAM_FOLDER");
        return 2;
    }
    tavrel::Session session(argv[1], tavrel::LoadSettings(argv[1]).settings);
    session.keepRecoverable();
    if (!session.load()) {
        return 3;
    }
    Walk walk(session);
    walk.change(1);
    walk.change(2);
    walk.undo();
    walk.change(3);
    walk.apply();
    walk.change(4);
    walk.change(5);
    walk.undo();
    walk.redo();
    return walk.isTroubled() ? 1 : 0;
}
