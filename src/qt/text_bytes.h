#pragma once
// How the bytes of a line become text on screen and back.
//
// Lines hold bytes in whatever code page their file was written in. Bytes
// that are valid UTF-8 show as UTF-8; any other line shows byte for byte as
// Latin-1, so that every byte has a character and nothing turns into U+FFFD.
// A field remembers which of the two its text came in, and what the author
// types there goes back in the same one wherever that gives the same text
// again, so that an edit leaves the bytes it did not touch as they were.

#include <QString>
#include <string>
#include <string_view>

namespace korvane {

bool isUtf8(std::string_view bytes);

QString textFromBytes(std::string_view bytes);

// latin1: the field's text came from bytes that were not UTF-8.
std::string bytesFromText(const QString& text, bool latin1);

}  // namespace korvane
