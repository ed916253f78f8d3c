// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/LineJson.h"

namespace tavrel {

void appendRecord(JsonObject& object, const SoundLine& record)
{
    object.bytes("Name", record.Name.trimmed())
        .bytes("SampleText", record.SampleText.trimmed())
        .bytes("Samples", std::span(record.Samples).first(record.sampleCount()))
        .bytes("Vol", record.Vol.trimmed())
        .bytes("FlagP", record.FlagP.trimmed())
        .bytes("FlagV", record.FlagV.trimmed())
        .bytes("FlagRN", record.FlagRN.trimmed())
        .bytes("FlagL", record.FlagL.trimmed())
        .bytes("Ch", record.Ch.trimmed())
        .bytes("Pit", record.Pit.trimmed())
        .bytes("Rad", record.Rad.trimmed())
        .bytes("Letters", record.Letters);
}

} // namespace tavrel
