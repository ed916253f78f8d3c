// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the table of checks has in its rows. Each is defined in a file of its own, or beside those with which
// it shares what it reads.
namespace tavrel {

class CheckRun;

namespace checks {

void sampleMissing(CheckRun& run);
void sampleFormat(CheckRun& run);
void sampleBits(CheckRun& run);
void sampleChunks(CheckRun& run);
void sampleSilent(CheckRun& run);
void valueZero(CheckRun& run);
void valueCase(CheckRun& run);
void valueDigits(CheckRun& run);
void chanceLow(CheckRun& run);
void noLetter(CheckRun& run);
void lettersWithoutSamples(CheckRun& run);
void wordsLost(CheckRun& run);
void letterTwice(CheckRun& run);
void letterBesideG(CheckRun& run);
void letterLength(CheckRun& run);
void letterAsWord(CheckRun& run);
void letterUnknown(CheckRun& run);
void flagsRN(CheckRun& run);
void samplesTooLong(CheckRun& run);
void nameTwice(CheckRun& run);
void lineShifted(CheckRun& run);
void colonComment(CheckRun& run);
void lostColon(CheckRun& run);
void protectedChanged(CheckRun& run);
void referenceLetterTwice(CheckRun& run);
void referenceWadTwice(CheckRun& run);
void letterInsideLetter(CheckRun& run);
void wadMissing(CheckRun& run);
void referenceUnused(CheckRun& run);
void listSample(CheckRun& run);
void listObject(CheckRun& run);
void resultsOld(CheckRun& run);
void toolMissing(CheckRun& run);
void sampleUnused(CheckRun& run);

} // namespace checks

} // namespace tavrel
