#pragma once
// The profile-string service behind GetINIString: one value by section and
// key from a file of "[section]" heads and "key=value" lines.
//
// - CR LF, LF and a CR on its own all end a line.
// - Blanks and tabs ahead of a line are skipped; a line that then begins with
//   ';' is a comment, one that begins with '[' and holds a ']' is a section
//   head. The name is what stands between '[' and the first ']', without
//   blanks and tabs around it; text behind the ']' is of no account.
// - Any other line is a key line if it holds '=': the key is left of the
//   first '=', the value all that stands right of it. Blanks and tabs around
//   both do not count, and a value between a pair of double or single quotes
//   loses them.
// - Section and key names match without regard to ASCII case. Only the first
//   section of the name is searched, and in it the first line of the key.
// - A UTF-8 byte-order mark at the head of the file is skipped.
// - The bytes are those of the opening's snapshot; the file is never changed.
//   The scan skips from line end to line end, and outside the section from
//   head to head.

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

class SourceSnapshot;

struct ProfileString {
  // The value or the default, cut to one character less than the size.
  std::string text;
  // The length of text.
  std::size_t count = 0;
};

// The service's scan for one key, fed the file's bytes as they come, in
// pieces of any size: the lookup hands it the whole file, korvane-cli check
// one line after the other, to learn on which line the key was found.
class ProfileKeyScan {
 public:
  // limit: how many characters of the value are kept.
  ProfileKeyScan(std::string_view section, std::string_view key, std::size_t limit);
  ~ProfileKeyScan();
  ProfileKeyScan(ProfileKeyScan&&) noexcept;
  ProfileKeyScan& operator=(ProfileKeyScan&&) noexcept;

  // True once the answer is known: the key found, or its section over. Bytes
  // fed after that are not looked at.
  bool feed(std::string_view bytes);
  // The end of the file, which also ends a last line without a line end.
  void finish();

  bool sectionFound() const;
  // The value, cut to the limit; nullopt while the key has not been found.
  std::optional<std::string> value() const;
  // The length of the whole value, before the cut.
  std::size_t valueLength() const;

 private:
  struct Scanner;
  std::unique_ptr<Scanner> m_scanner;
};

// A missing, unreadable or unsuitable file gives the default like a missing
// key does: it is no failure.
ProfileString GetPrivateProfileString(std::string_view section, std::string_view key,
                                      std::string_view defaultValue, std::size_t size,
                                      const SourceSnapshot& source);

}  // namespace korvane
