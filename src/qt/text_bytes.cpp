#include "qt/text_bytes.h"

#include <QByteArray>
#include <algorithm>

namespace korvane {

bool isUtf8(std::string_view bytes) {
  std::size_t i = 0;
  while (i < bytes.size()) {
    const auto lead = static_cast<unsigned char>(bytes[i]);
    int length = 0;
    char32_t lowest = 0;
    if (lead < 0x80) {
      ++i;
      continue;
    } else if (lead >= 0xC2 && lead <= 0xDF) {
      length = 2, lowest = 0x80;
    } else if ((lead & 0xF0) == 0xE0) {
      length = 3, lowest = 0x800;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
      length = 4, lowest = 0x10000;
    } else {
      return false;
    }
    if (i + length > bytes.size()) return false;
    char32_t code = lead & (0x7F >> length);
    for (int k = 1; k < length; ++k) {
      const auto next = static_cast<unsigned char>(bytes[i + k]);
      if ((next & 0xC0) != 0x80) return false;
      code = (code << 6) | (next & 0x3F);
    }
    // Overlong forms, surrogates and code points beyond Unicode decode to
    // U+FFFD in Qt, which would lose the bytes.
    if (code < lowest || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return false;
    i += length;
  }
  return true;
}

QString textFromBytes(std::string_view bytes) {
  const auto size = static_cast<qsizetype>(bytes.size());
  return isUtf8(bytes) ? QString::fromUtf8(bytes.data(), size) : QString::fromLatin1(bytes.data(), size);
}

std::string bytesFromText(const QString& text, bool latin1) {
  if (latin1) {
    const bool fits = std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() <= 0xFF; });
    if (fits) {
      std::string bytes = text.toLatin1().toStdString();
      // Latin-1 bytes that happen to read as UTF-8 with more than ASCII in
      // them would come back as other text: those go as UTF-8.
      if (!isUtf8(bytes) || std::all_of(bytes.begin(), bytes.end(), [](char b) { return b >= 0; }))
        return bytes;
    }
  }
  return text.toUtf8().toStdString();
}

}  // namespace korvane
