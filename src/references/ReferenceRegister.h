// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"
#include "base/TextFile.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// Ties the WAD file of a level to the letter that marks its sounds.
struct WadReference
{
    std::string wadName; // base name, without folder and extension
    std::string letter;  // without "#"
    std::string title;

    friend bool operator==(const WadReference&, const WadReference&) = default;
};

// The references that come with the program, then the user's own, each in the order of its file.
class ReferenceRegister
{
public:
    void appendBuiltIn(WadReference reference);
    void appendUser(WadReference reference) { m_references.push_back(std::move(reference)); }

    const std::vector<WadReference>& all() const { return m_references; }
    std::size_t builtInCount() const { return m_builtInCount; }

    // The first that matches exactly, or null.
    const WadReference* findLetter(std::string_view letter) const;
    const WadReference* findWad(std::string_view wadName) const;
    const WadReference* findUserWad(std::string_view wadName) const;

private:
    std::vector<WadReference> m_references;
    std::size_t m_builtInCount = 0;
};

constexpr std::string_view builtInReferencesFileName = "Tavrel.tow";
constexpr std::string_view userReferencesFileName = "Tavrel.paw";

struct LoadedRegister
{
    ReferenceRegister references;
    std::vector<Failure> notices; // lines that were passed over, a user file that cannot be read
};

// The installed references must be there; the user's file may be missing.
Result<LoadedRegister> loadRegister(const std::filesystem::path& programFolder);

} // namespace tavrel
