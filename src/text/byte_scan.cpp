#include "text/byte_scan.h"

#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace korvane::detail {
namespace {

bool isLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
char upperAscii(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}
bool holdsKeywordAt(const char* text, std::string_view keyword) {
  for (std::size_t k = 0; k < keyword.size(); ++k) {
    if (upperAscii(text[k]) != keyword[k]) return false;
  }
  return true;
}

#if defined(__SSE2__)
constexpr std::size_t kLane = 16;

__m128i load(const char* p) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
}
unsigned maskOf(__m128i lanes) {
  return static_cast<unsigned>(_mm_movemask_epi8(lanes));
}
// The bits of a 16-lane mask, without the library call that __builtin_popcount
// becomes on processors the build may not assume to count bits themselves.
std::size_t bitsOf(unsigned mask) {
  mask -= (mask >> 1) & 0x5555u;
  mask = (mask & 0x3333u) + ((mask >> 2) & 0x3333u);
  mask = (mask + (mask >> 4)) & 0x0F0Fu;
  return (mask + (mask >> 8)) & 0x1Fu;
}

// Compares lanes with one character of a keyword, letters in either case.
struct FoldedByte {
  explicit FoldedByte(char c)
      : fold(_mm_set1_epi8(isLetter(c) ? 0x20 : 0)),
        target(_mm_set1_epi8(static_cast<char>(isLetter(c) ? (c | 0x20) : c))) {}
  __m128i matches(__m128i lanes) const { return _mm_cmpeq_epi8(_mm_or_si128(lanes, fold), target); }
  __m128i fold;
  __m128i target;
};
#endif

// The needles are a few bytes long: a loop costs less than a library call.
bool holdsTextAt(const char* text, std::string_view needle) {
  for (std::size_t k = 0; k < needle.size(); ++k) {
    if (text[k] != needle[k]) return false;
  }
  return true;
}

// Hands visit, in order, every place of [begin, end) where needle may start
// (at least every place where it does), until visit returns true; that place,
// or nullptr.
template <class Visit>
const char* eachCandidate(const char* begin, const char* end, std::string_view needle, Visit visit) {
  const std::size_t n = needle.size();
  if (static_cast<std::size_t>(end - begin) < n) return nullptr;
  const char* const lastStart = end - n;
  const char* p = begin;
#if defined(__SSE2__)
  // Candidates are where the first and the last byte both match.
  const __m128i first = _mm_set1_epi8(needle.front());
  const __m128i last = _mm_set1_epi8(needle.back());
  for (; lastStart - p >= static_cast<std::ptrdiff_t>(kLane); p += kLane) {
    unsigned mask =
        maskOf(_mm_and_si128(_mm_cmpeq_epi8(load(p), first), _mm_cmpeq_epi8(load(p + n - 1), last)));
    for (; mask != 0; mask &= mask - 1) {
      const char* candidate = p + __builtin_ctz(mask);
      if (visit(candidate)) return candidate;
    }
  }
#endif
  for (; p <= lastStart; ++p) {
    if (visit(p)) return p;
  }
  return nullptr;
}

}  // namespace

const char* findText(const char* begin, const char* end, std::string_view needle) {
  return eachCandidate(begin, end, needle, [&](const char* at) { return holdsTextAt(at, needle); });
}

void replaceEach(char* begin, char* end, std::string_view needle, std::string_view replacement) {
  // Bytes before this were written by a replacement. A replacement changes
  // only bytes behind the candidates already handed on, so the later ones hold.
  const char* free = begin;
  eachCandidate(begin, end, needle, [&](const char* at) {
    if (at >= free && holdsTextAt(at, needle)) {
      std::memcpy(begin + (at - begin), replacement.data(), replacement.size());
      free = at + needle.size();
    }
    return false;
  });
}

const char* findKeyword(const char* begin, const char* end, std::string_view keyword) {
  const std::size_t n = keyword.size();
  if (static_cast<std::size_t>(end - begin) < n) return nullptr;
  const char* const lastStart = end - n;
  const char* p = begin;
#if defined(__SSE2__)
  const FoldedByte first(keyword.front());
  const FoldedByte last(keyword.back());
  for (; lastStart - p >= static_cast<std::ptrdiff_t>(kLane); p += kLane) {
    unsigned mask = maskOf(_mm_and_si128(first.matches(load(p)), last.matches(load(p + n - 1))));
    for (; mask != 0; mask &= mask - 1) {
      const char* candidate = p + __builtin_ctz(mask);
      if (holdsKeywordAt(candidate, keyword)) return candidate;
    }
  }
#endif
  for (; p <= lastStart; ++p) {
    if (holdsKeywordAt(p, keyword)) return p;
  }
  return nullptr;
}

const char* findLineEnd(const char* begin, const char* end) {
  const char* p = begin;
#if defined(__SSE2__)
  const __m128i cr = _mm_set1_epi8('\r');
  const __m128i lf = _mm_set1_epi8('\n');
  for (; end - p >= static_cast<std::ptrdiff_t>(kLane); p += kLane) {
    const __m128i lanes = load(p);
    unsigned mask = maskOf(_mm_or_si128(_mm_cmpeq_epi8(lanes, cr), _mm_cmpeq_epi8(lanes, lf)));
    if (mask != 0) return p + __builtin_ctz(mask);
  }
#endif
  for (; p != end; ++p) {
    if (*p == '\r' || *p == '\n') return p;
  }
  return nullptr;
}

void LineEndCounter::add(const char* begin, const char* end) {
  const char* p = begin;
#if defined(__SSE2__)
  const __m128i cr = _mm_set1_epi8('\r');
  const __m128i lf = _mm_set1_epi8('\n');
  unsigned bare = 0;
  unsigned lone = 0;
  for (; end - p >= static_cast<std::ptrdiff_t>(kLane); p += kLane) {
    const __m128i lanes = load(p);
    const unsigned crMask = maskOf(_mm_cmpeq_epi8(lanes, cr));
    const unsigned lfMask = maskOf(_mm_cmpeq_epi8(lanes, lf));
    const std::size_t crs = bitsOf(crMask);
    // Sixteen lanes hold fewer CRs than lie between two anchors.
    const std::size_t nextAnchor = (m_carriageReturns / kAnchorEvery + 1) * kAnchorEvery;
    if (m_carriageReturns + crs >= nextAnchor) {
      unsigned mask = crMask;
      for (std::size_t skip = nextAnchor - m_carriageReturns - 1; skip > 0; --skip) mask &= mask - 1;
      m_anchors.push_back(m_seen + static_cast<std::uint64_t>(p - begin) +
                          static_cast<unsigned>(__builtin_ctz(mask)));
    }
    m_carriageReturns += crs;
    const unsigned previousCr = m_lastWasCarriageReturn ? 1u : 0u;
    bare |= lfMask & ~((crMask << 1) | previousCr);
    lone |= (crMask & ~(lfMask >> 1) & 0x7FFFu) | (previousCr & ~lfMask);
    m_lastWasCarriageReturn = (crMask >> (kLane - 1)) != 0;
  }
  if (bare != 0) m_bareLineFeed = true;
  if (lone != 0) m_loneCarriageReturn = true;
#endif
  for (; p != end; ++p) {
    if (*p == '\n' && !m_lastWasCarriageReturn) m_bareLineFeed = true;
    if (*p != '\n' && m_lastWasCarriageReturn) m_loneCarriageReturn = true;
    m_lastWasCarriageReturn = *p == '\r';
    if (m_lastWasCarriageReturn && ++m_carriageReturns % kAnchorEvery == 0) {
      m_anchors.push_back(m_seen + static_cast<std::uint64_t>(p - begin));
    }
  }
  m_seen += static_cast<std::uint64_t>(end - begin);
}

const char* findLastCarriageReturn(const char* begin, const char* end) {
  while (end != begin) {
    if (*--end == '\r') return end;
  }
  return nullptr;
}

std::size_t countCarriageReturns(const char* begin, const char* end) {
  std::size_t count = 0;
  const char* p = begin;
#if defined(__SSE2__)
  const __m128i cr = _mm_set1_epi8('\r');
  for (; end - p >= static_cast<std::ptrdiff_t>(kLane); p += kLane) {
    count += bitsOf(maskOf(_mm_cmpeq_epi8(load(p), cr)));
  }
#endif
  for (; p != end; ++p) count += *p == '\r' ? 1 : 0;
  return count;
}

}  // namespace korvane::detail
