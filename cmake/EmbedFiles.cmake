# SPDX-License-Identifier: GPL-3.0-or-later
# Writes a C++ source that holds FILES (a list) byte by byte, for companion/EmbeddedFiles.h, to OUTPUT.
set(arrays "")
set(table "")
set(index 0)
foreach(file IN LISTS FILES)
    get_filename_component(name ${file} NAME)
    file(READ ${file} hex HEX)
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
    string(APPEND arrays "const unsigned char file${index}[] = {${bytes}0};\n")
    string(APPEND table
        "    {\"${name}\", {reinterpret_cast<const char*>(file${index}), sizeof file${index} - 1}},\n")
    math(EXPR index "${index} + 1")
endforeach()
file(WRITE ${OUTPUT} "// Written by the build.
#include \"companion/EmbeddedFiles.h\"

namespace tavrel {
namespace {
${arrays}
const EmbeddedFile files[] = {
${table}};
} // namespace
std::span<const EmbeddedFile> embeddedFiles() { return files; }
} // namespace tavrel
")
