// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/RegisterEditor.h"

#include "base/CodePage.h"
#include "base/Counted.h"
#include "base/Folder.h"
#include "base/Titles.h"
#include "catalogue/ChangeSounds.h"
#include "catalogue/SoundLine.h"
#include "references/LetterCommands.h"
#include "references/LetterTexts.h"
#include "references/LineLetters.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::size_t letterWidth = 4;
constexpr std::size_t titleColumn = longestWadName + letterWidth;
constexpr std::size_t shownTitle = 50;

std::string padded(std::string_view text, std::size_t width)
{
    std::string result(text.substr(0, width));
    result.resize(width, ' ');
    return result;
}

bool isMissing(std::string_view text)
{
    return text.empty() || text.starts_with(' ');
}

} // namespace

std::string referenceRow(const WadReference& reference)
{
    std::string letter = reference.letter;
    if (letter.size() < letterWidth) {
        letter.resize(letterWidth, ' ');
    }
    return padded(reference.wadName, longestWadName) + letter + reference.title;
}

WadReference fieldsOfRow(std::string_view row)
{
    const auto columns = [row](std::size_t from, std::size_t width) {
        return std::string(from < row.size() ? RTrimBlanks(row.substr(from, width)) : std::string_view());
    };
    return {columns(0, longestWadName), columns(longestWadName, letterWidth),
            columns(titleColumn, shownTitle)};
}

std::optional<std::string> wadNameFromPath(std::string_view path)
{
    const std::size_t separator = path.find_last_of("\\/");
    const std::string_view name = separator == std::string_view::npos ? path : path.substr(separator + 1);
    std::size_t ending = name.find(".WAD");
    if (ending == std::string_view::npos) {
        ending = name.find(".wad");
    }
    if (ending == std::string_view::npos) {
        return std::nullopt;
    }
    return std::string(name.substr(0, ending));
}

bool RegisterEditor::refuse(ReferenceField field, const Title& title, const BilingualText& text)
{
    m_focus = field;
    m_context.dialogs.show({MessageIcon::Exclamation, title, text});
    return false;
}

bool RegisterEditor::showIfFailed(const Problem& problem, const Title& title)
{
    return problem && !refuse(ReferenceField::None, title, problem->text);
}

void RegisterEditor::tellLinesLeft(const std::string& letter, const Title& title)
{
    const std::size_t lines = linesWithLetter(m_context.catalogue, letter);
    if (isLetterOfOneLevel(letter) || lines == 0) {
        return;
    }
    const std::string marked = "[#" + shownText(letter) + "]";
    refuse(ReferenceField::None, title,
           BilingualText(marked + " is not a letter of one level. It stays on ",
                         marked + " n'est pas une lettre de niveau. Elle reste sur ") +
               countedLines(lines) + ".");
}

BilingualText RegisterEditor::soundsWith(const std::string& letter) const
{
    return listedSounds(m_context.catalogue, soundsWithLetter(m_context.catalogue, letter));
}

WadReference RegisterEditor::select(std::optional<std::size_t> row, bool announceBuiltIn)
{
    m_focus = ReferenceField::None;
    const bool isBuiltIn = row && !ReferenceRegister::isEditable(*row);
    if (isBuiltIn && announceBuiltIn) {
        m_context.dialogs.show(
            {MessageIcon::Information,
             titles::reference,
             {"This reference shouldn't be modified", "Cette référence ne doit pas être modifiée"}});
    }
    m_selected = isBuiltIn ? std::nullopt : row;
    WadReference fields =
        m_selected ? fieldsOfRow(referenceRow(m_context.references.at(*m_selected))) : WadReference();
    m_selectedLetter = fields.letter;
    m_selectedWadName = fields.wadName;
    return fields;
}

bool RegisterEditor::hasWadFile(std::string_view wadName, std::string_view ending, const Title& caption)
{
    if (findFile(m_context.wadFolder, std::string(wadName).append(lowerCase(ending)))) {
        return true;
    }
    const std::string file = "[" + shownText(wadName) + std::string(ending) + "]";
    const std::string folder = displayPath(m_context.wadFolder / "");
    return refuse(ReferenceField::WadName, caption,
                  {"No " + file + " File\nin " + folder, "Aucun Fichier " + file + "\ndans " + folder});
}

bool RegisterEditor::isFreeWadName(const std::string& wadName, const Title& caption)
{
    for (const WadReference& reference : m_context.references.all()) {
        const WadReference row = fieldsOfRow(referenceRow(reference));
        if (row.wadName == wadName) {
            const std::string name = bracketed(wadName);
            // The English text ends without its bracket.
            return refuse(ReferenceField::WadName, caption,
                          {"Wad Name " + name + " already assigned to [#" + shownText(row.letter),
                           "Nom de WAD " + name + " déjà assigné à [#" + shownText(row.letter) + "]"});
        }
    }
    return true;
}

bool RegisterEditor::isFreeLetter(const std::string& letter, const Title& caption)
{
    for (const WadReference& reference : m_context.references.all()) {
        const WadReference row = fieldsOfRow(referenceRow(reference));
        if (row.letter == letter) {
            const std::string name = bracketed(row.wadName);
            return refuse(ReferenceField::Letter, caption,
                          {"Letter #" + shownText(letter) + " already assigned to " + name,
                           "Lettre #" + shownText(letter) + " déjà assignée à " + name});
        }
    }
    return true;
}

bool RegisterEditor::ValidateReference(const WadReference& fields, bool adding, const Title& caption)
{
    m_focus = ReferenceField::None;
    if (isMissing(fields.wadName)) {
        return refuse(ReferenceField::WadName, caption,
                      {"Type a correct WAD name or Choose it from a directory",
                       "Tapez un nom de WAD correct ou sélectionnez-le depuis le répertoire"});
    }
    if (!hasWadFile(fields.wadName, ".WAS", caption) || !hasWadFile(fields.wadName, ".SAM", caption)) {
        return false;
    }
    constexpr std::size_t letterLength = 2;
    if (fields.letter.size() != letterLength || fields.letter.starts_with(' ')) {
        return refuse(ReferenceField::Letter, titles::letter, letterTexts::twoCharacters);
    }
    if (hasForbiddenLetterCharacter(fields.letter)) {
        return refuse(ReferenceField::Letter, titles::letter, letterTexts::forbiddenCharacter);
    }
    if (fields.letter.starts_with('g')) {
        return refuse(ReferenceField::Letter, titles::letter, letterTexts::startsWithG);
    }
    if (isMissing(fields.title) || fields.title.find_first_of("\r\n") != std::string::npos) {
        return refuse(ReferenceField::Title, caption, {"Type a correct Title", "Tapez un titre correct"});
    }
    return (!adding && fields.wadName == m_selectedWadName ? true : isFreeWadName(fields.wadName, caption)) &&
           (!adding && fields.letter == m_selectedLetter ? true : isFreeLetter(fields.letter, caption));
}

bool RegisterEditor::isUnused(const std::string& letter) const
{
    if (!isLetterOfOneLevel(letter) || looksLikeFlagOrValue(letter) ||
        m_context.references.findLetter(letter) != nullptr) {
        return false;
    }
    for (std::size_t k = 0; k < m_context.catalogue.size(); ++k) {
        if (m_context.catalogue.currentLine(k).find("#" + letter) != std::string::npos) {
            return false;
        }
    }
    return true;
}

// Of characters of the name where that can be.
std::string RegisterEditor::freeLetter(std::string_view wadName) const
{
    constexpr std::string_view usual = "abcdefghijklmnopqrstuvwxyz0123456789";
    std::string name = lowerCase(std::string(wadName));
    std::erase_if(name, [usual](char c) { return usual.find(c) == std::string_view::npos; });
    const std::string firsts = name.substr(0, 1).append(usual);
    const std::string seconds = name.substr(std::min<std::size_t>(1, name.size())).append(usual);
    for (const char first : firsts) {
        for (const char second : seconds) {
            std::string letter{first, second};
            if (isUnused(letter)) {
                return letter;
            }
        }
    }
    return {};
}

bool RegisterEditor::add(const WadReference& fields)
{
    if (!ValidateReference(fields, true, titles::addReference)) {
        return false;
    }
    {
        const Step step(m_context.catalogue, titles::addReference + (", " + shownText(fields.wadName)));
        m_context.references.appendUser(fields);
    }
    select(std::nullopt, false);
    return true;
}

RegisterEditor::Modified RegisterEditor::modify(const WadReference& fields)
{
    m_focus = ReferenceField::None;
    if (!m_selected) {
        m_context.dialogs.show(
            {MessageIcon::Information, titles::modifyNoReference, {"Nothing to modify", "Rien à modifier"}});
        return Modified::Refused;
    }
    if (!ValidateReference(fields, false, titles::modifyReference)) {
        return Modified::Refused;
    }
    const Title& title = titles::modifySelectedReference;
    if (fields.letter != m_selectedLetter) {
        const std::string before = "[#" + shownText(m_selectedLetter) + "]";
        const std::string after = "[#" + shownText(fields.letter) + "]";
        const std::string name = bracketed(m_selectedWadName);
        Question question{
            title,
            {"Replace letter " + before + " by " + after + "\n for all the sounds of " + name + " Wad",
             "Remplacer la lettre " + before + " par " + after + "\n pour tous les sons du wad " + name},
            Buttons::YesNo};
        question.details = soundsWith(m_selectedLetter);
        if (m_context.dialogs.ask(question) != Answer::Yes) {
            return Modified::LetterTakenBack;
        }
    }
    const std::string letterBefore = m_selectedLetter;
    if (showIfFailed(store(fields), title)) {
        return Modified::Refused;
    }
    if (fields.letter != letterBefore) {
        tellLinesLeft(letterBefore, title);
    }
    return Modified::Done;
}

Problem RegisterEditor::store(const WadReference& fields)
{
    const Step step(m_context.catalogue,
                    titles::modifySelectedReference + (", " + shownText(m_selectedWadName)));
    if (fields.letter != m_selectedLetter) {
        if (Problem problem = replaceLetterOnAllLines(m_context.catalogue, m_selectedLetter, fields.letter)) {
            return problem;
        }
        m_linesChanged = true;
    }
    const WadReference& before = m_context.references.at(*m_selected);
    WadReference wanted = fields;
    if (fields.title == fieldsOfRow(referenceRow(before)).title) {
        wanted.title = before.title; // the field shows only its beginning
    }
    if (m_context.wad.wadName == before.wadName) {
        m_context.wad = {wanted.wadName, wanted.letter, wanted.title};
    }
    m_context.references.replace(*m_selected, wanted);
    m_selectedLetter = fields.letter;
    m_selectedWadName = fields.wadName;
    return std::nullopt;
}

bool RegisterEditor::remove()
{
    if (!m_selected) {
        m_context.dialogs.show(
            {MessageIcon::Information, titles::deleteReference, {"Nothing to delete", "Rien à supprimer"}});
        return false;
    }
    const std::string letter = shownText(m_selectedLetter);
    const std::string name = shownText(m_selectedWadName);
    Question question{
        titles::deleteReference,
        {"Delete [" + name + "/#" + letter + "] reference\nRemove all [#" + letter + "] from Sound ID list",
         "Supprimer la référence [" + name + "/#" + letter + "]\nEnlever toutes les lettres [#" + letter +
             "] de la liste ID Sons"},
        Buttons::YesNo};
    question.details = soundsWith(m_selectedLetter);
    if (m_context.dialogs.ask(question) != Answer::Yes) {
        return false;
    }
    const Problem problem = [&] {
        const Step step(m_context.catalogue, titles::deleteReference + (", " + name));
        Problem refusal = eraseLetterFromAllLines(m_context.catalogue, m_selectedLetter);
        if (!refusal) {
            if (m_context.wad.wadName == m_context.references.at(*m_selected).wadName) {
                m_context.wad = {};
            }
            m_context.references.remove(*m_selected);
        }
        return refusal;
    }();
    if (showIfFailed(problem, titles::deleteReference)) {
        return false;
    }
    m_linesChanged = true;
    tellLinesLeft(m_selectedLetter, titles::deleteReference);
    select(std::nullopt, false);
    return true;
}

} // namespace tavrel
