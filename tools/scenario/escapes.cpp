#include "scenario/escapes.h"

#include <stdexcept>

namespace korvane::scenario {

std::string unescapeText(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      result += text[i];
      continue;
    }
    if (i + 1 == text.size()) throw std::invalid_argument("a backslash at the end of the text");
    switch (text[++i]) {
      case 'n':
        result += '\n';
        break;
      case 'r':
        result += '\r';
        break;
      case 't':
        result += '\t';
        break;
      case 's':
        result += ' ';
        break;
      case '\\':
        result += '\\';
        break;
      default:
        throw std::invalid_argument(std::string("unknown escape \\") + text[i]);
    }
  }
  return result;
}

std::string escapeText(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (char c : text) {
    switch (c) {
      case '\n':
        result += "\\n";
        break;
      case '\r':
        result += "\\r";
        break;
      case '\t':
        result += "\\t";
        break;
      case '\\':
        result += "\\\\";
        break;
      default:
        result += c;
    }
  }
  return result;
}

}  // namespace korvane::scenario
