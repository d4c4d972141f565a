#include "text/number_conversion.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>
#include <system_error>

#include "runtime/failure.h"

namespace korvane {
namespace {

// Blanks, tabs and line feeds do not count anywhere in a number, not even
// between its digits.
bool isSkipped(char c) {
  return c == ' ' || c == '\t' || c == '\n';
}

bool isDigit(int c) {
  return c >= '0' && c <= '9';
}

int digitValue(int c, int base) {
  int value = -1;
  if (c >= '0' && c <= '9') value = c - '0';
  if (c >= 'a' && c <= 'f') value = c - 'a' + 10;
  if (c >= 'A' && c <= 'F') value = c - 'A' + 10;
  return value < base ? value : -1;
}

int upper(int c) {
  return c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c;
}

// Walks the text character by character, hiding the characters that are skipped.
class NumberReader {
 public:
  explicit NumberReader(std::string_view text) : m_text(text) {}

  // The next character that counts, -1 at the end of the text.
  int peek() {
    while (m_pos < m_text.size() && isSkipped(m_text[m_pos])) ++m_pos;
    return m_pos < m_text.size() ? static_cast<unsigned char>(m_text[m_pos]) : -1;
  }
  void take() { ++m_pos; }

 private:
  std::string_view m_text;
  std::size_t m_pos = 0;
};

[[noreturn]] void overflow() {
  throw RuntimeFailure(failure_number::Overflow);
}

// Digits behind &H or &O. What fits 16 bits unsigned is read as a 16-bit signed
// value and what fits 32 bits as a 32-bit one, so &HFFFF is -1.
double readMarkedWhole(NumberReader& reader, int base) {
  std::uint64_t value = 0;
  for (int digit = digitValue(reader.peek(), base); digit >= 0; digit = digitValue(reader.peek(), base)) {
    reader.take();
    value = value * static_cast<std::uint64_t>(base) + static_cast<std::uint64_t>(digit);
    if (value > 0xFFFFFFFFu) overflow();
  }
  if (value <= 0xFFFFu) return static_cast<std::int16_t>(static_cast<std::uint16_t>(value));
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

// The decimal number as significant digits and a power of ten:
// value = 0.<digits> * 10^exponent.
struct DecimalParts {
  bool negative = false;
  std::string digits;
  std::int64_t exponent = 0;
};

// Exponents are held far beyond any double, but well inside 64 bits.
constexpr std::int64_t kExponentCap = 1'000'000'000'000;

// Returns false when the text does not begin with a number.
bool readDecimal(NumberReader& reader, DecimalParts& parts) {
  int c = reader.peek();
  if (c == '+' || c == '-') {
    parts.negative = c == '-';
    reader.take();
  }
  bool anyDigit = false;
  bool period = false;
  std::int64_t wholeDigits = 0;    // significant digits in front of the period
  std::int64_t fractionZeros = 0;  // zeros behind the period before the first significant digit
  for (c = reader.peek();; c = reader.peek()) {
    if (isDigit(c)) {
      anyDigit = true;
      if (!parts.digits.empty() || c != '0') {
        parts.digits += static_cast<char>(c);
        if (!period) ++wholeDigits;
      } else if (period) {
        ++fractionZeros;
      }
    } else if (c == '.' && !period) {
      period = true;
    } else {
      break;
    }
    reader.take();
  }
  if (!anyDigit) return false;

  std::int64_t written = 0;
  c = upper(reader.peek());
  if (c == 'E' || c == 'D') {
    reader.take();
    bool negativeExponent = false;
    c = reader.peek();
    if (c == '+' || c == '-') {
      negativeExponent = c == '-';
      reader.take();
    }
    for (c = reader.peek(); isDigit(c); c = reader.peek()) {
      reader.take();
      if (written < kExponentCap) written = written * 10 + (c - '0');
    }
    if (negativeExponent) written = -written;
  }
  parts.exponent = wholeDigits - fractionZeros + written;
  return true;
}

}  // namespace

double LeadingNumber(std::string_view text) {
  NumberReader reader(text);
  if (reader.peek() == '&') {
    reader.take();
    int mark = upper(reader.peek());
    if (mark != 'H' && mark != 'O') return 0;
    reader.take();
    return readMarkedWhole(reader, mark == 'H' ? 16 : 8);
  }

  DecimalParts parts;
  if (!readDecimal(reader, parts)) return 0;
  while (!parts.digits.empty() && parts.digits.back() == '0') parts.digits.pop_back();
  if (parts.digits.empty()) return 0;  // also for "-0": no negative zero
  // Far outside the range of a double either way: no need to ask the parser.
  if (parts.exponent > 400) overflow();
  if (parts.exponent < -400) return 0;

  // from_chars reads the period whatever the locale of the process says.
  std::string normal = "0." + parts.digits + "e" + std::to_string(parts.exponent);
  double value = 0;
  std::errc error = std::from_chars(normal.data(), normal.data() + normal.size(), value).ec;
  if (error == std::errc::result_out_of_range) {
    if (parts.exponent > 0) overflow();
    return 0;
  }
  if (error != std::errc() || !std::isfinite(value)) overflow();
  return parts.negative ? -value : value;
}

std::int32_t RoundToWhole(double value, WholeWidth width) {
  if (!std::isfinite(value)) overflow();
  // Done by hand so that it does not depend on the process's rounding mode.
  double below = std::floor(value);
  double fraction = value - below;  // exact for every finite double
  double rounded = below;
  if (fraction > 0.5 || (fraction == 0.5 && std::fmod(below, 2.0) != 0)) rounded = below + 1;

  double lowest = width == WholeWidth::Bits16 ? -32768.0 : -2147483648.0;
  double highest = width == WholeWidth::Bits16 ? 32767.0 : 2147483647.0;
  if (rounded < lowest || rounded > highest) overflow();
  return static_cast<std::int32_t>(rounded);
}

}  // namespace korvane
