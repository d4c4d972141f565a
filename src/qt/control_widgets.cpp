#include "qt/control_widgets.h"

#include <QFocusEvent>
#include <QSignalBlocker>

namespace korvane {

MirrorCheckBox::MirrorCheckBox(const QString& text, QWidget* parent) : QCheckBox(text, parent) {
  setTristate(true);
}

TypingValidator::TypingValidator(Rule rule, QObject* parent) : QValidator(parent), m_rule(std::move(rule)) {}

QValidator::State TypingValidator::validate(QString& input, int&) const {
  return m_rule(input) ? Acceptable : Invalid;
}

MaskedLineEdit::MaskedLineEdit(QWidget* parent) : QLineEdit(parent) {}

void MaskedLineEdit::setDisplayFormat(DisplayFormat format) {
  m_format = std::move(format);
  display();
}

void MaskedLineEdit::showText(const QString& text) {
  m_text = text;
  display();
}

void MaskedLineEdit::display() {
  const QString shown = m_format && !hasFocus() ? m_format(m_text) : m_text;
  if (shown == text()) return;
  const QSignalBlocker blocker(this);
  setText(shown);
}

void MaskedLineEdit::focusInEvent(QFocusEvent* event) {
  // The raw text goes back on screen before the base class places the caret
  // or selects the whole text for a Tab.
  display();
  QLineEdit::focusInEvent(event);
}

void MaskedLineEdit::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  // Switching to another application or opening a context menu is no move
  // of the focus inside the program.
  const Qt::FocusReason reason = event->reason();
  if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) emit focusLeft();
  display();
}

}  // namespace korvane
