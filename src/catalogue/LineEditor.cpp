// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/LineEditor.h"

#include "base/Titles.h"
#include "catalogue/LineWords.h"

namespace tavrel {

namespace {

char letterOf(LineFlag flag)
{
    constexpr std::string_view letters = "PVRNL";
    return letters[static_cast<std::size_t>(flag)];
}

// For a record that may be changed and for one that may not.
template <typename Record>
auto& valueField(Record& record, ValueBox box)
{
    switch (box) {
    case ValueBox::Vol:
        return record.Vol;
    case ValueBox::Pit:
        return record.Pit;
    case ValueBox::Rad:
        return record.Rad;
    case ValueBox::Ch:
        break;
    }
    return record.Ch;
}

template <typename Record>
auto& flagField(Record& record, LineFlag flag)
{
    switch (flag) {
    case LineFlag::P:
        return record.FlagP;
    case LineFlag::V:
        return record.FlagV;
    case LineFlag::R:
    case LineFlag::N:
        return record.FlagRN;
    case LineFlag::L:
        break;
    }
    return record.FlagL;
}

} // namespace

void LineEditor::select(std::optional<std::size_t> number)
{
    m_selected = number;
    m_record = canEdit() ? ParseSoundLine(m_catalogue->currentLine(*number)) : SoundLine();
    m_unedited = m_record;
}

bool LineEditor::canEdit() const
{
    return m_selected && *m_selected < m_catalogue->size() && !m_catalogue->isProtected(*m_selected);
}

std::string LineEditor::setValue(ValueBox box, std::string_view typed, bool userIsTyping)
{
    std::string text = correctedBoxText(box, typed, userIsTyping);
    valueField(m_record, box) = fieldFromBox(box, text);
    return text;
}

std::string LineEditor::boxText(ValueBox box) const
{
    return boxFromField(box, valueField(m_record, box).trimmed());
}

void LineEditor::setFlag(LineFlag flag, bool on)
{
    const char letter = letterOf(flag);
    if (on) {
        flagField(m_record, flag) = std::string_view(&letter, 1);
    } else if (hasFlag(flag)) { // clearing R leaves an N in the shared field alone
        flagField(m_record, flag) = "";
    }
}

bool LineEditor::hasFlag(LineFlag flag) const
{
    return flagField(m_record, flag).view().front() == letterOf(flag);
}

bool LineEditor::accept(Dialogs& dialogs)
{
    return canEdit() && confirmComposing(dialogs) && store(m_record, titles::acceptValues, dialogs);
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

bool LineEditor::store(const SoundLine& record, const BilingualText& title, Dialogs& dialogs)
{
    const std::string line = ComposeSoundLine(record);
    if (ParseSoundLine(line).sampleCount() > record.sampleCount()) {
        dialogs.show(
            {MessageIcon::Exclamation,
             title,
             {"This line has no sample: its values or letters would be read as one. Add a sample first.",
              "Cette ligne n'a pas de sample : ses valeurs ou ses lettres seraient lues comme un sample. "
              "Ajoutez d'abord un sample."}});
        return false;
    }
    const Problem problem = [&] {
        const Step step(*m_catalogue, stepLabel(title, *m_catalogue, m_selected.value()));
        return m_catalogue->setCurrentLine(m_selected.value(), line);
    }();
    if (problem) {
        dialogs.show({MessageIcon::Exclamation, title, problem->text});
        return false;
    }
    select(m_selected);
    return true;
}

bool LineEditor::mayLeave(Dialogs& dialogs)
{
    if (!edited()) {
        return true;
    }
    const Question question{titles::acceptValues,
                            {"Values not accepted. Accept them?", "Valeurs non acceptées. Les accepter ?"},
                            Buttons::YesNoCancel};
    switch (dialogs.ask(question)) {
    case Answer::Yes:
        return accept(dialogs);
    case Answer::No:
        select(m_selected);
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

void setLine(SoundCatalogue& catalogue, std::size_t number, const std::string& text,
             const BilingualText& command, const BilingualText& title, Dialogs& dialogs)
{
    const Problem problem = [&] {
        const Step step(catalogue, stepLabel(command, catalogue, number));
        return catalogue.setCurrentLine(number, text);
    }();
    if (problem) {
        dialogs.show({MessageIcon::Exclamation, title, problem->text});
    }
}

} // namespace

bool restoreLine(SoundCatalogue& catalogue, std::size_t number, Dialogs& dialogs)
{
    const Question question{
        titles::line, {"Restore Original line", "Restaurer la ligne d'origine"}, Buttons::YesNo};
    if (dialogs.ask(question) != Answer::Yes) {
        return false;
    }
    setLine(catalogue, number, catalogue.originalLine(number), question.text, question.title, dialogs);
    return true;
}

void backToFileLine(SoundCatalogue& catalogue, std::size_t number, Dialogs& dialogs)
{
    setLine(catalogue, number, catalogue.fileLine(number), backToFileLabel(), titles::line, dialogs);
}

BilingualText backToFileLabel()
{
    return {"Back to the file's line", "Revenir à la ligne du fichier"};
}

} // namespace tavrel
