#include "qt/control_widgets.h"

#include <QFocusEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyle>

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

namespace {

// The caption starts this far in from the frame's left end, with a gap of
// half as much on either side where the line stops.
constexpr int kCaptionInset = 8;

QString withoutAccessKey(QString caption) {
  return caption.remove(QLatin1Char('&'));
}

}  // namespace

ClassicFrame::ClassicFrame(const QString& caption, QWidget* parent) : QWidget(parent), m_caption(caption) {}

QRect ClassicFrame::borderRect() const {
  const int top = m_caption.isEmpty() ? 0 : fontMetrics().height() / 2;
  return QRect(0, top, width(), height() - top);
}

QRect ClassicFrame::captionRect() const {
  if (m_caption.isEmpty()) return {};
  return QRect(kCaptionInset, 0, fontMetrics().horizontalAdvance(withoutAccessKey(m_caption)),
               fontMetrics().height());
}

void ClassicFrame::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect border = borderRect();
  // Etched: a shadow line, and a light one a pixel below and to the right of it.
  const QRect shadow = border.adjusted(0, 0, -2, -2);
  const QRect light = shadow.translated(1, 1);
  const QRect caption = captionRect();
  if (!caption.isEmpty()) {
    const int gap = kCaptionInset / 4;
    painter.setClipRegion(QRegion(rect()) - QRegion(caption.adjusted(-gap, 0, gap, 0)));
  }
  painter.setPen(palette().color(QPalette::Light));
  painter.drawRect(light);
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(shadow);
  painter.setClipping(false);
  if (!caption.isEmpty()) {
    style()->drawItemText(&painter, caption, Qt::AlignLeft | Qt::AlignTop | Qt::TextShowMnemonic, palette(),
                          isEnabled(), m_caption, QPalette::WindowText);
  }
}

FocusScrollBar::FocusScrollBar(int top, int bottom, QWidget* parent)
    : QScrollBar(Qt::Vertical, parent), m_top(top), m_bottom(bottom) {
  setRange(0, recordMaximum() - recordMinimum());
}

void FocusScrollBar::paintEvent(QPaintEvent* event) {
  QScrollBar::paintEvent(event);
  if (!hasFocus()) return;
  QPainter painter(this);
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

}  // namespace korvane
