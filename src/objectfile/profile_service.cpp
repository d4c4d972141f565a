#include "objectfile/profile_service.h"

#include <cstring>
#include <optional>

#include "objectfile/source_snapshot.h"
#include "text/byte_scan.h"

namespace korvane {
namespace {

bool isBlank(char c) {
  return c == ' ' || c == '\t';
}
bool isLineEnd(char c) {
  return c == '\r' || c == '\n';
}
char lowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string_view trimBlanks(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

// Compares a name arriving character by character, blanks and tabs around it
// dropped, with the wanted one. Blanks inside the name count, so they wait
// until the next character shows that they are not trailing; nothing longer
// than the wanted name is ever kept.
class NameMatcher {
 public:
  explicit NameMatcher(std::string_view wanted) : m_wanted(trimBlanks(wanted)) {}

  void reset() {
    m_matched = 0;
    m_pending.clear();
    m_pendingTooLong = false;
    m_mismatch = false;
  }

  void add(char c) {
    if (m_mismatch) return;
    if (isBlank(c)) {
      if (m_matched == 0) return;
      // Blanks can only belong to the name if a character still fits behind them.
      if (m_matched + m_pending.size() + 2 > m_wanted.size()) {
        m_pendingTooLong = true;
      } else {
        m_pending.push_back(c);
      }
      return;
    }
    if (m_pendingTooLong) {
      m_mismatch = true;
      return;
    }
    for (char blank : m_pending) compare(blank);
    m_pending.clear();
    compare(c);
  }

  bool matches() const { return !m_mismatch && m_matched == m_wanted.size(); }
  bool failed() const { return m_mismatch; }

 private:
  void compare(char c) {
    if (m_matched < m_wanted.size() && lowerAscii(c) == lowerAscii(m_wanted[m_matched])) {
      ++m_matched;
    } else {
      m_mismatch = true;
    }
  }

  std::string_view m_wanted;
  std::size_t m_matched = 0;
  std::string m_pending;
  bool m_pendingTooLong = false;
  bool m_mismatch = false;
};

// Gathers a value, blanks and tabs around it dropped. Only its head is kept,
// as much as the limit and a pair of quotes need, but its first and last
// character are known whatever its length, so the quotes are judged on the
// whole value.
class ValueCollector {
 public:
  explicit ValueCollector(std::size_t limit) : m_keep(limit + 2), m_limit(limit) {}

  void add(char c) {
    if (isBlank(c)) {
      if (m_length == 0) return;
      if (m_pending.size() < m_keep) m_pending.push_back(c);
      ++m_pendingCount;
      return;
    }
    if (m_pendingCount > 0) {
      keep(m_pending);
      m_length += m_pendingCount;
      m_pending.clear();
      m_pendingCount = 0;
    }
    keep(std::string_view(&c, 1));
    if (m_length == 0) m_first = c;
    m_last = c;
    ++m_length;
  }

  // The whole value, a pair of quotes dropped, however much of it was kept.
  std::size_t length() const { return quoted() ? m_length - 2 : m_length; }

  std::string value() const {
    std::string_view text = m_kept;
    if (quoted()) {
      text.remove_prefix(1);
      // The closing quote was kept only if the whole value was.
      if (m_length == m_kept.size()) text.remove_suffix(1);
    }
    return std::string(text.substr(0, m_limit));
  }

 private:
  bool quoted() const { return m_length >= 2 && (m_first == '"' || m_first == '\'') && m_last == m_first; }

  void keep(std::string_view text) {
    if (m_kept.size() < m_keep) m_kept.append(text.substr(0, m_keep - m_kept.size()));
  }

  std::size_t m_keep;
  std::size_t m_limit;
  std::string m_kept;
  std::string m_pending;
  std::size_t m_pendingCount = 0;
  std::size_t m_length = 0;
  char m_first = 0;
  char m_last = 0;
};

// Reads a file's bytes as they come and knows, line by line, whether the
// wanted key has turned up.
class ProfileScanner {
 public:
  ProfileScanner(std::string_view section, std::string_view key, std::size_t limit)
      : m_section(section), m_key(key), m_value(limit) {}

  // True once the answer is known: the key found, or its section over.
  bool feed(const char* data, const char* end) {
    if (m_done) return true;
    data = skipByteOrderMark(data, end);
    if (data == nullptr) return m_done;
    m_done = scan(data, end);
    return m_done;
  }

  // The end of the file also ends a last line that has no line end.
  void finish() {
    // A file that is no more than the head of a byte-order mark.
    if (m_markMatched > 0 && m_markMatched < kByteOrderMark.size()) {
      std::string_view head = kByteOrderMark.substr(0, m_markMatched);
      m_markMatched = kByteOrderMark.size();
      feed(head.data(), head.data() + head.size());
    }
    if (!m_done && m_state == State::Value) m_found = true;
    m_done = true;
  }

  bool sectionFound() const { return m_sectionFound; }
  std::size_t valueLength() const { return m_found ? m_value.length() : 0; }

  std::optional<std::string> value() const {
    if (!m_found) return std::nullopt;
    return m_value.value();
  }

 private:
  enum class State { LineStart, SkipLine, SectionName, Key, Value };

  // A UTF-8 byte-order mark, as several editors write it, is no part of the
  // first line. It may arrive split over pieces; bytes held back as a possible
  // head of it are scanned as soon as they turn out to be none.
  static constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  const char* skipByteOrderMark(const char* data, const char* end) {
    while (m_markMatched < kByteOrderMark.size() && data != end) {
      if (*data != kByteOrderMark[m_markMatched]) {
        std::string_view held = kByteOrderMark.substr(0, m_markMatched);
        m_markMatched = kByteOrderMark.size();
        if (scan(held.data(), held.data() + held.size())) {
          m_done = true;
          return nullptr;
        }
        return data;
      }
      ++m_markMatched;
      ++data;
    }
    return m_markMatched < kByteOrderMark.size() ? nullptr : data;
  }

  bool scan(const char* data, const char* end) {
    while (data != end) {
      if (m_state == State::SkipLine) {
        data = detail::findLineEnd(data, end);
        if (data == nullptr) return false;
      } else if (m_state == State::LineStart && !m_inSection) {
        // Until the section turns up only heads count: a '[' with nothing
        // but blanks ahead of it on its line.
        data = nextHead(data, end);
        if (data == nullptr) return false;
      }
      if (step(*data)) return true;
      ++data;
    }
    return false;
  }

  // The next '[' from lineStart on that opens a line, blanks aside.
  static const char* nextHead(const char* lineStart, const char* end) {
    for (const char* from = lineStart;;) {
      auto* bracket = static_cast<const char*>(std::memchr(from, '[', static_cast<std::size_t>(end - from)));
      if (bracket == nullptr) return nullptr;
      const char* before = bracket;
      while (before != lineStart && isBlank(before[-1])) --before;
      if (before == lineStart || isLineEnd(before[-1])) return bracket;
      from = bracket + 1;
    }
  }

  bool step(char c) {
    if (isLineEnd(c)) return endLine();
    switch (m_state) {
      case State::LineStart:
        if (isBlank(c)) break;
        if (c == ';') {
          m_state = State::SkipLine;
        } else if (c == '[') {
          m_section.reset();
          m_state = State::SectionName;
        } else if (m_inSection) {
          m_key.reset();
          m_key.add(c);
          m_state = State::Key;
        } else {
          m_state = State::SkipLine;
        }
        break;
      case State::SectionName:
        if (c != ']') {
          m_section.add(c);
          break;
        }
        // Only the first section of the name is searched.
        if (m_inSection) return true;
        m_inSection = m_section.matches();
        m_sectionFound = m_inSection;
        m_state = State::SkipLine;
        break;
      case State::Key:
        if (c != '=') {
          m_key.add(c);
          if (m_key.failed()) m_state = State::SkipLine;
        } else {
          m_state = m_key.matches() ? State::Value : State::SkipLine;
        }
        break;
      case State::Value:
        m_value.add(c);
        break;
      case State::SkipLine:
        break;
    }
    return false;
  }

  bool endLine() {
    if (m_state == State::Value) {
      m_found = true;
      return true;
    }
    // A '[' without ']' and a line without '=' are neither head nor key.
    m_state = State::LineStart;
    return false;
  }

  State m_state = State::LineStart;
  std::size_t m_markMatched = 0;
  bool m_inSection = false;
  bool m_sectionFound = false;
  bool m_found = false;
  bool m_done = false;
  NameMatcher m_section;
  NameMatcher m_key;
  ValueCollector m_value;
};

std::optional<std::string> lookUp(std::string_view section, std::string_view key, std::size_t limit,
                                  const SourceSnapshot& source) {
  // A file that cannot be read has no keys.
  const SourceText* text = source.text();
  if (text == nullptr) return std::nullopt;
  ProfileKeyScan scan(section, key, limit);
  if (!scan.feed(std::string_view(text->bytes.get(), text->size))) scan.finish();
  return scan.value();
}

}  // namespace

struct ProfileKeyScan::Scanner : ProfileScanner {
  using ProfileScanner::ProfileScanner;
};

ProfileKeyScan::ProfileKeyScan(std::string_view section, std::string_view key, std::size_t limit)
    : m_scanner(std::make_unique<Scanner>(section, key, limit)) {}
ProfileKeyScan::~ProfileKeyScan() = default;
ProfileKeyScan::ProfileKeyScan(ProfileKeyScan&&) noexcept = default;
ProfileKeyScan& ProfileKeyScan::operator=(ProfileKeyScan&&) noexcept = default;

bool ProfileKeyScan::feed(std::string_view bytes) {
  return m_scanner->feed(bytes.data(), bytes.data() + bytes.size());
}
void ProfileKeyScan::finish() {
  m_scanner->finish();
}
bool ProfileKeyScan::sectionFound() const {
  return m_scanner->sectionFound();
}
std::optional<std::string> ProfileKeyScan::value() const {
  return m_scanner->value();
}
std::size_t ProfileKeyScan::valueLength() const {
  return m_scanner->valueLength();
}

ProfileString GetPrivateProfileString(std::string_view section, std::string_view key,
                                      std::string_view defaultValue, std::size_t size,
                                      const SourceSnapshot& source) {
  // One place of the caller's buffer is the terminator's.
  std::size_t limit = size == 0 ? 0 : size - 1;
  std::optional<std::string> value = lookUp(section, key, limit, source);
  ProfileString result;
  result.text = value ? std::move(*value) : std::string(defaultValue.substr(0, limit));
  result.count = result.text.size();
  return result;
}

}  // namespace korvane
