// SPDX-License-Identifier: GPL-3.0-or-later
#include "versions/VersionCommands.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "cli/Commands.h"
#include "cli/Json.h"
#include "cli/Opening.h"
#include "versions/CatalogueComparison.h"
#include "versions/CatalogueMerge.h"

#include <algorithm>
#include <memory>

namespace tavrel {

namespace {

std::string nameIn(std::string_view line)
{
    return utf8FromCodePage(line.substr(0, line.find(':')));
}

Result<OtherCatalogue> readWhole(const std::filesystem::path& file)
{
    Result<OtherCatalogue> read = readOtherCatalogue(file);
    if (read && !read->isComplete) {
        return wrongContent(file, {"The file contains only some sounds, not a whole catalogue.",
                                   "Le fichier ne contient que quelques sons, et non un catalogue entier."});
    }
    return read;
}

// diff

struct DiffArguments
{
    std::filesystem::path first;
    std::optional<std::filesystem::path> second;
    bool json = false;
};

// A line of each side; none where it is missing.
struct DifferingSound
{
    std::size_t number = 0;
    LineFields fields;
    std::optional<std::string_view> a;
    std::optional<std::string_view> b;
};

void writeJson(const DifferingSound& sound, Output& output)
{
    std::vector<std::string> names;
    for (const LineField field : everyLineField) {
        if (sound.fields.has(field)) {
            names.emplace_back(nameOf(field));
        }
    }
    JsonObject object(output.pending());
    object.number("sound", sound.number).bytes("fields", names);
    const auto line = [&object](std::string_view name, std::optional<std::string_view> text) {
        text ? object.bytes(name, *text) : object.null(name);
    };
    line("a", sound.a);
    line("b", sound.b);
    object.end();
    output.endLine();
}

void writeWords(const DifferingSound& sound, Console& console)
{
    const BilingualText words = !sound.a   ? BilingualText("only in B", "seulement dans B")
                                : !sound.b ? BilingualText("only in A", "seulement dans A")
                                           : describeDifference(*sound.a, *sound.b);
    console.output.writeLine(std::to_string(sound.number) + " " + nameIn(sound.a ? *sound.a : *sound.b) +
                             ": " + console.dialogs.inLanguage(words));
    if (sound.a) {
        console.output.writeLine("- " + utf8FromCodePage(*sound.a));
    }
    if (sound.b) {
        console.output.writeLine("+ " + utf8FromCodePage(*sound.b));
    }
}

ExitStatus writeDifferences(SoundLines mine, const OtherCatalogue& other, bool json, Console& console)
{
    const CatalogueComparison comparison = compareCatalogues(mine, other);
    if (const BilingualText shift = shiftText(comparison.pairing); !shift.empty()) {
        console.dialogs.say(shift);
    }
    for (const SoundDifference& difference : comparison.differences) {
        const auto& [a, b] = difference.sound;
        const DifferingSound sound{a ? *a : other.numbers[*b], difference.fields,
                                   a ? std::optional(mine[*a]) : std::nullopt,
                                   b ? std::optional<std::string_view>(other.lines[*b]) : std::nullopt};
        if (json) {
            writeJson(sound, console.output);
        } else {
            writeWords(sound, console);
        }
    }
    return comparison.differences.empty() ? ExitStatus::Done : ExitStatus::Refused;
}

ExitStatus diff(const DiffArguments& arguments, Console& console)
{
    const Result<OtherCatalogue> other = readOtherCatalogue(arguments.second.value_or(arguments.first));
    if (!other) {
        return console.dialogs.fail(other.failure());
    }
    if (arguments.second) {
        const Result<OtherCatalogue> first = readWhole(arguments.first);
        return first ? writeDifferences(first->views(), *other, arguments.json, console)
                     : console.dialogs.fail(first.failure());
    }
    const std::unique_ptr<Session> session = openSession(console);
    return session ? writeDifferences(currentLinesOf(session->catalogue()), *other, arguments.json, console)
                   : ExitStatus::FileFailure;
}

// merge

struct MergeArguments
{
    std::filesystem::path base;
    std::filesystem::path mine;
    std::filesystem::path theirs;
};

void sayConflict(const MergedSound& sound, const OtherCatalogue& base, const OtherCatalogue& mine,
                 const OtherCatalogue& theirs, Console& console)
{
    const auto line = [](const OtherCatalogue& side, std::optional<std::size_t> number) {
        return number ? std::optional<std::string_view>(side.lines[*number]) : std::nullopt;
    };
    const std::optional<std::string_view> old = line(base, sound.base);
    const auto change = [&](std::optional<std::string_view> now) {
        return !now   ? BilingualText("not there", "absent")
               : !old ? BilingualText("put in", "ajouté")
                      : describeDifference(*old, *now);
    };
    const std::optional<std::string_view> ofMine = line(mine, sound.mine);
    const std::optional<std::string_view> ofTheirs = line(theirs, sound.theirs);
    const std::string number = std::to_string(sound.mine   ? *sound.mine
                                              : sound.base ? *sound.base
                                                           : *sound.theirs);
    const std::string name = nameIn(old ? *old : ofMine ? *ofMine : *ofTheirs);
    console.dialogs.say(
        BilingualText("Conflict at sound " + number + " " + name + ", mine is kept. Mine: ",
                      "Conflit au son " + number + " " + name + ", le mien reste. Le mien : ") +
        change(ofMine) + BilingualText("; theirs: ", " ; le leur : ") + change(ofTheirs));
}

void writeLine(std::string_view line, Console& console)
{
    console.output.pending().append(line).append("\r");
    console.output.endLine();
}

// What is no sound in MINE stays before the sound before which it stands there.
void writeMerged(const CatalogueMerge& merge, const OtherCatalogue& mine, const OtherCatalogue& theirs,
                 Console& console)
{
    const std::vector<std::string_view> myLines = mine.views();
    const std::vector<std::string_view> theirLines = theirs.views();
    auto plain = mine.plainLines.begin();
    const auto writePlain = [&](std::size_t before) {
        for (; plain != mine.plainLines.end() && plain->beforeSound <= before; ++plain) {
            writeLine(plain->text, console);
        }
    };
    for (const MergedSound& sound : merge.sounds) {
        if (sound.mine) {
            writePlain(*sound.mine);
        }
        if (const std::optional<std::string_view> line = lineAfterMerge(sound, myLines, theirLines)) {
            writeLine(*line, console);
        }
    }
    writePlain(mine.lines.size());
}

ExitStatus merge(const MergeArguments& arguments, Console& console)
{
    std::vector<OtherCatalogue> sides;
    for (const std::filesystem::path& file : {arguments.base, arguments.mine, arguments.theirs}) {
        Result<OtherCatalogue> read = readWhole(file);
        if (!read) {
            return console.dialogs.fail(read.failure());
        }
        sides.push_back(std::move(*read));
    }
    const CatalogueMerge merged = mergeCatalogues(sides[0].views(), sides[1].views(), sides[2].views());
    if (!merged.shift.empty()) {
        console.dialogs.say(merged.shift);
    }
    for (const MergedSound& sound : merged.sounds) {
        if (sound.outcome == MergeOutcome::Conflict) {
            sayConflict(sound, sides[0], sides[1], sides[2], console);
        }
    }
    writeMerged(merged, sides[1], sides[2], console);
    return merged.conflicts() == 0 ? ExitStatus::Done : ExitStatus::DoneWithMessages;
}

// versions

struct VersionArguments
{
    std::string name;
    bool json = false;
    std::optional<std::string> wadName;
};

KeptPlaces placesOf(const Session& session)
{
    return {session.catalogue().file().path, session.places().samples, session.places().wads};
}

// What is kept, or a message.
std::optional<std::vector<KeptVersion>> keptBy(const Session& session, Console& console)
{
    Result<std::vector<KeptVersion>> kept = listKeptVersions(placesOf(session));
    if (!kept) {
        console.dialogs.fail(kept.failure());
        return std::nullopt;
    }
    return std::move(*kept);
}

ExitStatus listVersions(Console& console)
{
    const std::unique_ptr<Session> session = openSession(console);
    const std::optional<std::vector<KeptVersion>> kept = session ? keptBy(*session, console) : std::nullopt;
    if (!kept) {
        return ExitStatus::FileFailure;
    }
    const std::vector<std::string_view> now = currentLinesOf(session->catalogue());
    for (const KeptVersion& version : *kept) {
        console.output.writeLine(utf8FromCodePage(version.name) + "\t" + version.time + "\t" +
                                 console.dialogs.inLanguage(extentOf(version, now)) + "\t" +
                                 console.dialogs.inLanguage(describe(version)));
    }
    return ExitStatus::Done;
}

// The one of that name, or a message.
std::optional<KeptVersion> versionNamed(const Session& session, const std::string& name, Console& console)
{
    const std::optional<std::vector<KeptVersion>> kept = keptBy(session, console);
    if (!kept) {
        return std::nullopt;
    }
    const auto found =
        std::ranges::find_if(*kept, [&](const KeptVersion& version) { return sameName(version.name, name); });
    if (found == kept->end()) {
        const std::string shown = bracketed(name);
        console.dialogs.refuse({"Nothing that is kept has the name " + shown + ".",
                                "Rien de ce qui est conservé ne porte le nom " + shown + "."});
        return std::nullopt;
    }
    return *found;
}

ExitStatus showVersion(const VersionArguments& arguments, Console& console)
{
    const std::unique_ptr<Session> session = openSession(console);
    if (!session) {
        return ExitStatus::FileFailure;
    }
    const std::optional<KeptVersion> version = versionNamed(*session, arguments.name, console);
    if (!version) {
        return console.dialogs.status();
    }
    if (version->isSet()) {
        return console.dialogs.refuse({"This is a folder of files, not a catalogue.",
                                       "C'est un répertoire de fichiers, et non un catalogue."});
    }
    const Result<OtherCatalogue> other = readOtherCatalogue(version->path);
    return other ? writeDifferences(currentLinesOf(session->catalogue()), *other, arguments.json, console)
                 : console.dialogs.fail(other.failure());
}

ExitStatus restoreVersion(const VersionArguments& arguments, Console& console)
{
    const std::unique_ptr<Session> session = openSessionToChange(console, arguments.wadName);
    if (!session) {
        return console.dialogs.status();
    }
    const std::optional<KeptVersion> version = versionNamed(*session, arguments.name, console);
    if (!version) {
        return console.dialogs.status();
    }
    if (version->isSet()) {
        SilentProgress progress;
        return bringSetBack(*version, placesOf(*session), progress, console.dialogs) ? ExitStatus::Done
                                                                                     : ExitStatus::Refused;
    }
    std::optional<std::vector<SoundCatalogue::LineChange>> changes =
        confirmBringingBack(session->catalogue(), *version, console.dialogs);
    if (!changes) {
        return ExitStatus::Refused;
    }
    if (const Problem problem = session->catalogue().setCurrentLines(std::move(*changes))) {
        return console.dialogs.refuse(problem->text);
    }
    return apply(*session, arguments.wadName, console);
}

void addVersions(const Menu& menu)
{
    const auto arguments = std::make_shared<VersionArguments>();
    const Menu group = menu.group(
        "versions", {"What is kept of earlier states", "Ce qui est conservé des états antérieurs"});
    const BilingualText name("As the list names it", "Comme la liste le nomme");
    group.command(
        "list",
        {"List what is kept, newest first", "Lister ce qui est conservé, du plus récent au plus ancien"},
        listVersions);
    group
        .command("show", {"Compare it with sounds.txt", "Le comparer avec sounds.txt"},
                 [arguments](Console& console) { return showVersion(*arguments, console); })
        .text("NAME", name, arguments->name)
        .flag("--json", {"One JSON object for each sound that differs", "Un objet JSON par son différent"},
              arguments->json);
    group
        .command("restore",
                 {"Bring it back, and write sounds.txt", "Le remettre en place, et écrire sounds.txt"},
                 [arguments](Console& console) { return restoreVersion(*arguments, console); })
        .text("NAME", name, arguments->name)
        .wad(arguments->wadName);
}

} // namespace

void addVersionCommands(const Menu& menu)
{
    const auto compared = std::make_shared<DiffArguments>();
    menu.command("diff", {"Compare two catalogues, sound by sound", "Comparer deux catalogues, son par son"},
                 [compared](Console& console) { return diff(*compared, console); })
        .path(
            "A",
            {"A file like sounds.txt, or a .tob file of all sounds; alone, it is B, and A is sounds.txt",
             "Un fichier comme sounds.txt, ou un fichier .tob de tous les sons ; seul, c'est B, et A est sounds.txt"},
            compared->first)
        .optionalPath("B",
                      {"What A is compared with; a .tox file may contain only some sounds",
                       "Ce avec quoi A est comparé ; un fichier .tox peut ne contenir que quelques sons"},
                      compared->second)
        .flag("--json", {"One JSON object for each sound that differs", "Un objet JSON par son différent"},
              compared->json);
    const auto merged = std::make_shared<MergeArguments>();
    menu.command("merge",
                 {"Merge two catalogues that came from the same one, to standard output",
                  "Fusionner deux catalogues issus du même, vers la sortie standard"},
                 [merged](Console& console) { return merge(*merged, console); })
        .path("BASE", {"What both came from", "Ce dont les deux sont issus"}, merged->base)
        .path("MINE", {"Stays in a conflict", "Reste en cas de conflit"}, merged->mine)
        .path("THEIRS", {"The other one", "L'autre"}, merged->theirs);
    addVersions(menu);
}

} // namespace tavrel
