// SPDX-License-Identifier: GPL-3.0-or-later
// Letters that could go without a change for any level.
#include "checks/CheckRun.h"
#include "checks/CheckTable.h"

#include <set>

namespace tavrel {

namespace {

std::string listOfLetters(const std::set<std::string>& letters)
{
    std::string list;
    for (const std::string& letter : letters) {
        list += (list.empty() ? "#" : " #") + utf8FromCodePage(letter);
    }
    return list;
}

BilingualText takeOff(const std::string& letters)
{
    return {"Take " + letters + " off", "Enlever " + letters};
}

bool hasG(const LineReading& reading)
{
    return std::ranges::find(reading.letters, "g") != reading.letters.end();
}

} // namespace

void checks::letterTwice(CheckRun& run)
{
    run.forEachSound([&run](const LineReading& reading) {
        std::set<std::string> seen;
        std::set<std::string> repeated;
        for (const std::string& letter : reading.letters) {
            if (!seen.insert(letter).second) {
                repeated.insert(letter);
            }
        }
        if (repeated.empty() || reading.samples.empty()) {
            return;
        }
        const std::string letters = listOfLetters(repeated);
        Finding& finding = run.addForSound("letter-twice", Severity::Warning, reading,
                                           {letters + " more than once.", letters + " plus d'une fois."});
        run.offerRewrite(finding, {"Once is enough", "Une fois suffit"}, [](const std::string& line) {
            std::set<std::string, std::less<>> kept;
            return withoutLetters(line,
                                  [&kept](std::string_view letter) { return !kept.emplace(letter).second; });
        });
    });
}

void checks::letterBesideG(CheckRun& run)
{
    run.forEachSound([&run](const LineReading& reading) {
        std::set<std::string> idle(reading.letters.begin(), reading.letters.end());
        idle.erase("g");
        if (idle.empty() || !hasG(reading) || reading.samples.empty()) {
            return;
        }
        const std::string letters = listOfLetters(idle);
        Finding& finding =
            run.addForSound("letter-beside-g", Severity::Note, reading,
                            {letters + " beside #g changes nothing: every level has the sound.",
                             letters + " à côté de #g ne change rien : chaque niveau contient le son."});
        run.offerRewrite(finding, takeOff(letters), [](const std::string& line) {
            return withoutLetters(line, [](std::string_view letter) { return letter != "g"; });
        });
    });
}

} // namespace tavrel
