// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/Step.h"

#include "base/CodePage.h"
#include "catalogue/SoundCatalogue.h"

namespace tavrel {

Step::Step(const SoundCatalogue& catalogue, const BilingualText& label) : m_recorder(catalogue.recorder())
{
    if (m_recorder != nullptr) {
        m_recorder->beginStep(label);
    }
}

Step::~Step()
{
    if (m_recorder != nullptr) {
        m_recorder->endStep();
    }
}

BilingualText stepLabel(const BilingualText& command, const SoundCatalogue& catalogue, std::size_t number)
{
    const std::string& line = catalogue.currentLine(number);
    const std::string name = utf8FromCodePage(line.substr(0, line.find(':')));
    return command + BilingualText::same(", " + std::to_string(number) + ": " + name);
}

} // namespace tavrel
