// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/LineEditor.h"

#include "base/Titles.h"
#include "catalogue/LineWords.h"

#include <algorithm>

namespace tavrel {

void LineEditor::select(std::optional<std::size_t> number)
{
    select(number ? std::vector{*number} : std::vector<std::size_t>(), number);
}

void LineEditor::select(std::vector<std::size_t> numbers, std::optional<std::size_t> current)
{
    m_selected = current;
    m_numbers = std::move(numbers);
    m_lines.clear();
    for (const std::size_t number : m_numbers) {
        if (number < m_catalogue->size() && !m_catalogue->isProtected(number)) {
            m_lines.push_back(ParseSoundLine(m_catalogue->currentLine(number)));
        }
    }
    putBack({});
}

void LineEditor::makeCurrent(std::optional<std::size_t> number)
{
    m_selected = number;
    editChanged();
}

bool LineEditor::canEdit() const
{
    return m_selected && *m_selected < m_catalogue->size() && !m_catalogue->isProtected(*m_selected);
}

void LineEditor::putBack(const LineEdit& edit)
{
    m_edit = edit;
    editChanged();
}

void LineEditor::editChanged()
{
    m_record =
        canEdit() ? m_edit.applied(ParseSoundLine(m_catalogue->currentLine(*m_selected))) : SoundLine();
    m_edited = m_edit != LineEdit() && std::ranges::any_of(m_lines, [this](const SoundLine& line) {
                   return m_edit.applied(line) != line;
               });
}

std::string LineEditor::setValue(ValueBox box, std::string_view typed, bool userIsTyping)
{
    std::string text = correctedBoxText(box, typed, userIsTyping);
    m_edit.value(box) = LineEdit::Value{text};
    editChanged();
    return text;
}

bool LineEditor::stepValue(ValueBox box, int by)
{
    LineEdit::Value value = m_edit.value(box).value_or(LineEdit::Value());
    if (value.text) {
        value.text = steppedBoxText(box, *value.text, by);
    } else {
        // No further than one of the lines can go, or the way back would begin with steps that do nothing.
        const int wanted = value.by + by;
        value.by = 0;
        for (const SoundLine& line : m_lines) {
            const std::string text = tavrel::boxText(line, box);
            const int steps = stepsBetween(box, text, steppedBoxText(box, text, wanted));
            value.by = wanted < 0 ? std::min(value.by, steps) : std::max(value.by, steps);
        }
    }
    if (m_edit.value(box).value_or(LineEdit::Value()) == value) {
        return false;
    }
    m_edit.value(box) = value;
    editChanged();
    return true;
}

std::optional<std::string> LineEditor::commonText(ValueBox box) const
{
    std::optional<std::string> common;
    for (const SoundLine& line : m_lines) {
        std::string text = tavrel::boxText(line, box);
        if (m_edit.value(box)) {
            text = boxFromField(box, fieldFromBox(box, m_edit.valueText(box, text)));
        }
        if (common.value_or(text) != text) {
            return std::nullopt;
        }
        common = text;
    }
    return common.value_or(std::string());
}

void LineEditor::setFlag(LineFlag flag, bool on)
{
    m_edit.setFlag(flag, on);
    editChanged();
}

std::optional<bool> LineEditor::commonFlag(LineFlag flag) const
{
    std::optional<bool> common;
    for (const SoundLine& line : m_lines) {
        const bool has = m_edit.flag(flag).value_or(tavrel::hasFlag(line, flag));
        if (common.value_or(has) != has) {
            return std::nullopt;
        }
        common = has;
    }
    return common.value_or(false);
}

bool LineEditor::accept(Dialogs& dialogs)
{
    m_report = {};
    if (!canEditAny()) {
        return false;
    }
    // Whoever follows the lines selects them anew meanwhile.
    const bool several = isSeveral();
    const std::vector<std::size_t> numbers = m_numbers;
    const LineEdit edit = m_edit;
    const SoundsChanged changed = editSounds(*m_catalogue, numbers, edit, titles::acceptValues, dialogs);
    tellRefused(changed, titles::acceptValues, dialogs);
    if (!changed.agreed || (changed.changed == 0 && !changed.refused.empty())) {
        return false;
    }
    if (several) {
        m_report = changed.report();
    }
    select(m_numbers, m_selected);
    return true;
}

bool LineEditor::confirmComposing(Dialogs& dialogs) const
{
    return tavrel::confirmComposing(m_catalogue->currentLine(m_selected.value()), dialogs);
}

bool LineEditor::storeSamples(std::vector<std::string> samples, Dialogs& dialogs)
{
    SoundLine record = m_record;
    record.Samples = std::move(samples);
    record.refreshSampleText();
    return store(record, titles::samples, dialogs);
}

bool LineEditor::storeLetters(std::string letters, Dialogs& dialogs)
{
    SoundLine record = m_record;
    record.Letters = std::move(letters);
    return store(record, titles::letter, dialogs);
}

bool LineEditor::store(const SoundLine& record, const Title& title, Dialogs& dialogs)
{
    const std::size_t number = m_selected.value();
    const SoundsChange change{stepLabel(title, *m_catalogue, number), title,
                              [&](std::size_t) { return composeEdited(record); }};
    const SoundsChanged changed = changeSounds(*m_catalogue, {&number, 1}, change, dialogs);
    tellRefused(changed, title, dialogs);
    if (!changed.refused.empty()) {
        return false;
    }
    select(m_numbers, m_selected);
    return true;
}

bool LineEditor::mayLeave(Dialogs& dialogs)
{
    if (!edited()) {
        return true;
    }
    Question question{titles::acceptValues,
                      {"Values not accepted. Accept them?", "Valeurs non acceptées. Les accepter ?"},
                      Buttons::YesNoCancel};
    if (m_numbers.size() > 1) {
        question.details = listedSounds(*m_catalogue, m_numbers);
    }
    switch (dialogs.ask(question)) {
    case Answer::Yes:
        return accept(dialogs);
    case Answer::No:
        select(m_numbers, m_selected);
        return true;
    default:
        return false;
    }
}

Message protectedLineRefusal()
{
    return {MessageIcon::Exclamation,
            titles::protectedLine,
            {"This line should not be modified", "Cette ligne ne doit pas être modifiée"}};
}

namespace {

// The lines as they stood elsewhere.
SoundsChanged putLinesBack(SoundCatalogue& catalogue, std::span<const std::size_t> numbers,
                           const BilingualText& command,
                           const std::function<const std::string&(std::size_t)>& line, Dialogs& dialogs)
{
    const SoundsChange change{stepLabel(command, catalogue, numbers), titles::line,
                              [&](std::size_t number) -> Result<std::string> { return line(number); }};
    SoundsChanged changed = changeSounds(catalogue, numbers, change, dialogs);
    tellRefused(changed, titles::line, dialogs);
    return changed;
}

} // namespace

std::optional<SoundsChanged> restoreLines(SoundCatalogue& catalogue, std::span<const std::size_t> numbers,
                                          Dialogs& dialogs)
{
    Question question{
        titles::line, {"Restore Original line", "Restaurer la ligne d'origine"}, Buttons::YesNo};
    const BilingualText command = question.text;
    if (numbers.size() > 1) {
        const std::string count = std::to_string(numbers.size());
        question.text = {"Restore the original lines of " + count + " sounds",
                         "Restaurer les lignes d'origine de " + count + " sons"};
        question.details = listedSounds(catalogue, numbers);
    }
    if (dialogs.ask(question) != Answer::Yes) {
        return std::nullopt;
    }
    return putLinesBack(
        catalogue, numbers, command,
        [&](std::size_t number) -> const std::string& { return catalogue.originalLine(number); }, dialogs);
}

SoundsChanged backToFileLines(SoundCatalogue& catalogue, std::span<const std::size_t> numbers,
                              Dialogs& dialogs)
{
    // A line that was put in since has none there.
    const auto line = [&](std::size_t number) -> const std::string& {
        return catalogue.lineInFile(number) == 0 ? catalogue.currentLine(number) : catalogue.fileLine(number);
    };
    return putLinesBack(catalogue, numbers, backToFileLabel(), line, dialogs);
}

void backToFileLine(SoundCatalogue& catalogue, std::size_t number, Dialogs& dialogs)
{
    backToFileLines(catalogue, {&number, 1}, dialogs);
}

BilingualText backToFileLabel()
{
    return {"Back to the file's line", "Revenir à la ligne du fichier"};
}

} // namespace tavrel
