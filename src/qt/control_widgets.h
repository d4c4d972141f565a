#pragma once
// The few widgets that need more than their Qt base to mirror a record.

#include <QCheckBox>
#include <QLineEdit>
#include <QScrollBar>
#include <QValidator>
#include <algorithm>
#include <functional>

#include "qt/record_values.h"

namespace korvane {

// Shows Value 2 as grayed. A click leaves the box as it is: the record works
// out the new value (unchecked and checked only) and the mirror shows it.
class MirrorCheckBox : public QCheckBox {
  Q_OBJECT
 public:
  MirrorCheckBox(const QString& text, QWidget* parent);

 protected:
  void nextCheckState() override {}
};

// Lets through only what the record would take from typing.
class TypingValidator : public QValidator {
  Q_OBJECT
 public:
  using Rule = std::function<bool(const QString&)>;
  TypingValidator(Rule rule, QObject* parent);
  State validate(QString& input, int& position) const override;

 private:
  Rule m_rule;
};

// A masked edit box. Without the focus it may show its text through a
// display format, while the record keeps the text as typed.
class MaskedLineEdit : public QLineEdit {
  Q_OBJECT
 public:
  using DisplayFormat = std::function<QString(const QString&)>;
  explicit MaskedLineEdit(QWidget* parent);

  void setDisplayFormat(DisplayFormat format);
  // Shows the record's text. Only a text that differs from the one on
  // screen is set, so that the caret stays where the author put it.
  void showText(const QString& text);
  const QString& recordText() const { return m_text; }

 signals:
  // The author moved the focus to another control of the program.
  void focusLeft();

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void display();

  DisplayFormat m_format;
  QString m_text;
};

// A frame drawn the classic way: an etched line round the box, the caption
// standing on its top line, in the palette's colours.
class ClassicFrame : public QWidget {
  Q_OBJECT
 public:
  ClassicFrame(const QString& caption, QWidget* parent);

  const QString& caption() const { return m_caption; }
  // Where the line runs, in the frame's own coordinates.
  QRect borderRect() const;
  // The thickness of the line: what lies inside keeps this far off it.
  static constexpr int kLineWidth = 2;
  // The caption's place on the top line.
  QRect captionRect() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString m_caption;
};

// A scroll bar too small for a thumb, which shows the focus as a line round
// itself. It holds the record's values, the record's Min at the top and its
// Max at the bottom, whichever is larger; the widget's own value runs from 0
// at the top, so that its arrows, keys and wheel move the right way round.
class FocusScrollBar : public QScrollBar {
  Q_OBJECT
 public:
  FocusScrollBar(int top, int bottom, QWidget* parent);

  int recordValue() const { return static_cast<int>(barRecordValue(m_top, m_bottom, value())); }
  void setRecordValue(int recordValue) {
    setValue(static_cast<int>(barPosition(m_top, m_bottom, recordValue)));
  }
  int recordMinimum() const { return std::min(m_top, m_bottom); }
  int recordMaximum() const { return std::max(m_top, m_bottom); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int m_top;
  int m_bottom;
};

}  // namespace korvane
