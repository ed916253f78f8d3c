// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"

#include <cstdio>

// A user who says Yes to everything.
class YesToAll : public tavrel::Dialogs
{
public:
    void show(const tavrel::Message& message) override { std::puts(message.text.english.c_str()); }
    tavrel::Answer ask(const tavrel::Question& question) override
    {
        return question.buttons == tavrel::Buttons::OkCancel ? tavrel::Answer::Ok : tavrel::Answer::Yes;
    }
    std::optional<std::filesystem::path> chooseFile(const tavrel::OpenFileQuestion& /*question*/) override
    {
        return std::nullopt;
    }
    std::optional<tavrel::ColourValue> chooseColour(tavrel::ColourValue /*current*/) override
    {
        return std::nullopt;
    }
};
