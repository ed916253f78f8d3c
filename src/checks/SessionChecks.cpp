// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/SessionChecks.h"

#include "catalogue/CatalogueLoading.h"
#include "samples/SampleRepair.h"

namespace tavrel {

namespace {

// sounds.txt is read for the lines that are no sounds.
class SessionSubject
{
public:
    SessionSubject(const Session& session, CurrentWad wad)
        : m_session(session), m_wad(std::move(wad)),
          m_file(readTextFile(session.catalogue().file().path, largestLines))
    {}

    CheckSubject subject() const
    {
        const Places& places = m_session.places();
        CheckSubject subject{m_session.catalogue(),
                             m_session.references(),
                             m_wad,
                             {places.creator, places.samples, places.wads},
                             m_file ? &*m_file : nullptr};
        subject.repairSample = [](const std::filesystem::path& sample) {
            SampleOutcome outcome = tavrel::repairSample(sample);
            return outcome.done ? Problem() : Problem(Failure{std::move(outcome.text)});
        };
        return subject;
    }

private:
    const Session& m_session;
    CurrentWad m_wad;
    Result<TextFile> m_file;
};

} // namespace

CheckReport checkSession(const Session& session, const CurrentWad& wad, Progress& progress)
{
    return runChecks(SessionSubject(session, wad).subject(), progress);
}

CheckReport checkFileOf(const Session& session)
{
    SilentProgress progress;
    return runFileChecks(SessionSubject(session, session.wad()).subject(), progress);
}

Result<std::vector<LevelSurvey>> surveySession(const Session& session)
{
    SilentProgress progress;
    const SessionSubject looked(session, session.wad());
    const CheckReport report = runChecks(looked.subject(), progress);
    return surveyLevels(looked.subject(), report.findings);
}

} // namespace tavrel
