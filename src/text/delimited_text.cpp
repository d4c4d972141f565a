#include "text/delimited_text.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>

#include "runtime/failure.h"
#include "runtime/failure_handling.h"
#include "runtime/message_box.h"
#include "runtime/message_frames.h"
#include "text/text_search.h"

namespace korvane {
namespace {

// Positions are 16-bit signed whole numbers: the highest one is 32767.
constexpr std::size_t kHighestPosition = 32767;

[[noreturn]] void overflow() {
  throw RuntimeFailure(failure_number::Overflow);
}

// The elements of a delimited text one after the other, with the 16-bit
// position checks of a walk from element 0: element k fails exactly when a
// walk for index k fails.
class ElementWalk {
 public:
  ElementWalk(std::string_view text, std::string_view delimiter)
      : m_text(text), m_delimiter(delimiter), m_finder(delimiter) {
    if (delimiter.size() > kHighestPosition) overflow();
  }

  // The next element, nullopt once the text has no more.
  std::optional<std::string_view> next() {
    if (m_ended) return std::nullopt;
    if (m_hit != 0) {
      // Going on behind the previous hit is where the start position can overflow.
      if (m_hit + m_delimiter.size() > kHighestPosition) overflow();
      m_start = m_hit + m_delimiter.size();
    }
    std::size_t found = m_start - 1 < m_text.size() ? m_finder.find(m_text, m_start - 1) : m_text.npos;
    if (found == m_text.npos) {
      m_ended = true;
      return m_start - 1 < m_text.size() ? m_text.substr(m_start - 1) : std::string_view();
    }
    m_hit = found + 1;
    if (m_hit > kHighestPosition) overflow();
    return m_text.substr(m_start - 1, m_hit - m_start);
  }

 private:
  std::string_view m_text;
  std::string_view m_delimiter;
  detail::TextFinder m_finder;
  std::size_t m_start = 1;  // 1-based
  std::size_t m_hit = 0;    // 1-based, 0 before the first hit
  bool m_ended = false;
};

std::string elementAt(std::string_view text, std::string_view delimiter, std::int16_t index) {
  ElementWalk walk(text, delimiter);  // an overlong delimiter fails even here
  // An empty delimiter is found everywhere and would never move the walk on:
  // the whole text counts as the one element.
  if (delimiter.empty()) return index == 0 ? std::string(text) : std::string();
  // A negative index is never reached, but the walk still goes to the end and
  // meets every position on the way.
  std::optional<std::string_view> element = walk.next();
  for (int count = 0; element && count != index; ++count) element = walk.next();
  return element && index >= 0 ? std::string(*element) : std::string();
}

// The copy from a resume point on. Substitute edits only at its front, so
// removing and inserting there must not move the rest of a long text.
class FrontEditableText {
 public:
  explicit FrontEditableText(std::string_view text) : m_buffer(text) {}

  std::string_view view() const { return std::string_view(m_buffer).substr(m_begin); }
  void dropFront(std::size_t count) { m_begin += count; }
  void prepend(std::string_view piece) {
    if (piece.size() > m_begin) {
      std::size_t room = piece.size() + view().size() / 2 + 64;
      std::string grown(room, '\0');
      grown += view();
      m_buffer.swap(grown);
      m_begin = room;
    }
    m_begin -= piece.size();
    std::copy(piece.begin(), piece.end(), m_buffer.begin() + static_cast<std::ptrdiff_t>(m_begin));
  }

 private:
  std::string m_buffer;
  std::size_t m_begin = 0;
};

std::string substituteAll(std::string_view text, std::string_view search, std::string_view replacement) {
  if (search.size() > kHighestPosition) overflow();
  if (search.empty()) return std::string(text);
  // A replacement that holds the search text is found again after every
  // replacement, so the search would never run out of hits; it is given up
  // at the first one, as the overflow that ends the climbing positions.
  detail::TextFinder finder(search);
  bool replacementHoldsSearch = finder.find(replacement) != replacement.npos;
  // A replacement may also form the search text anew with its neighbours;
  // the work is bounded so that no such chain runs forever.
  std::size_t budget = (std::size_t{1} << 26) + 64 * (text.size() + replacement.size() + search.size());
  std::size_t work = 0;

  std::string front;  // the copy in front of the resume point
  FrontEditableText rest(text);
  std::string joined;
  for (;;) {
    std::string_view behind = rest.view();
    std::size_t offset = finder.find(behind);
    if (offset == behind.npos) break;
    std::size_t hit = front.size() + offset + 1;
    if (hit > kHighestPosition || hit + search.size() > kHighestPosition) overflow();
    work += offset + search.size() + replacement.size();
    if (replacementHoldsSearch || work > budget) overflow();

    // A restart from position 1 would find nothing that lies wholly in front
    // of the hit: that part is unchanged and had no hit before.
    std::size_t keep = hit > search.size() ? hit - search.size() : 0;
    joined.clear();
    if (keep <= front.size()) {
      joined.assign(front, keep);
      front.resize(keep);
      joined += behind.substr(0, offset);
    } else {
      std::size_t moved = keep - front.size();
      front += behind.substr(0, moved);
      joined.assign(behind.substr(moved, offset - moved));
    }
    joined += replacement;
    rest.dropFront(offset + search.size());
    rest.prepend(joined);
  }
  front += rest.view();
  return front;
}

}  // namespace

std::string GetElement(Platform& platform, std::string_view text, std::string_view delimiter,
                       std::int16_t index) {
  std::string result;
  reportAndLeave([&] { result = elementAt(text, delimiter, index); },
                 [&](const RuntimeFailure& failure) {
                   result.clear();
                   MsgBox(platform, textFunctionErrorMessage("GetElement", failure));
                 });
  return result;
}

std::string GetFileName(Platform& platform, std::string_view path) {
  std::string_view copy = path.substr(0, 2) == "\\\\" ? path.substr(2) : path;
  bool skipFirst = !copy.empty() && copy.front() == '\\';
  // One walk serves every index: asking GetElement for index 0, 1, 2, ... in
  // turn meets the same elements and the same failures, each shown once.
  std::string_view last;
  reportAndLeave(
      [&] {
        ElementWalk walk(copy, "\\");
        if (skipFirst) walk.next();
        for (auto element = walk.next(); element && !element->empty(); element = walk.next()) {
          last = *element;
        }
      },
      [&](const RuntimeFailure& failure) {
        MsgBox(platform, textFunctionErrorMessage("GetElement", failure));
      });
  return std::string(last);
}

std::string Substitute(Platform& platform, std::string_view text, std::string_view search,
                       std::string_view replacement) {
  std::string result;
  reportAndLeave([&] { result = substituteAll(text, search, replacement); },
                 [&](const RuntimeFailure& failure) {
                   result.clear();
                   MsgBox(platform, textFunctionErrorMessage("Substitute", failure));
                 });
  return result;
}

}  // namespace korvane
