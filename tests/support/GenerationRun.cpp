// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Generation.h"

#include <cstdlib>

namespace tavrel {

void useWineOfTheTests()
{
    ::setenv("WINEPREFIX", TAVREL_WINE_PREFIX, 1);
    ::setenv("WINEDEBUG", "-all", 1);
    ::setenv("LC_ALL", "C.UTF-8", 1);
    ::unsetenv("DISPLAY"); // no window of Wine's own
}

void installTool(const std::filesystem::path& creatorFolder)
{
    std::filesystem::copy_file(TAVREL_STAND_IN, creatorFolder / "pcwadsfx.exe");
}

ToolSetting::ToolSetting(const char* name, const std::string& value) : m_name(name)
{
    ::setenv(name, value.c_str(), 1);
}

ToolSetting::~ToolSetting()
{
    ::unsetenv(m_name);
}

} // namespace tavrel
