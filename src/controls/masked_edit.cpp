#include "controls/masked_edit.h"

#include <algorithm>

#include "runtime/failure.h"

namespace korvane {

namespace {

bool fitsDigitMask(const std::string& text, const std::string& mask) {
  return text.size() <= mask.size() &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

void MaskedEdit::SetText(const std::string& text) {
  if (!m_settings.mask.empty() && !fitsDigitMask(text, m_settings.mask)) {
    throw RuntimeFailure(failure_number::InvalidPropertyValue);
  }
  if (text == m_text) return;
  m_text = text;
  changed();
  if (onChange) onChange();
}

bool MaskedEdit::AcceptsTyped(const std::string& text) const {
  if (!m_settings.mask.empty()) return fitsDigitMask(text, m_settings.mask);
  return m_settings.maxLength <= 0 || static_cast<int>(text.size()) <= m_settings.maxLength;
}

}  // namespace korvane
