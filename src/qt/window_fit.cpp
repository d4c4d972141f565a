#include "qt/window_fit.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionFrame>
#include <algorithm>

#include "qt/control_widgets.h"

namespace korvane {

namespace {

// The gap QLineEdit keeps between its contents and its text, left and right
// and above and below, and the caret behind the last character.
constexpr int kLineEditMarginX = 2;
constexpr int kLineEditMarginY = 1;
constexpr int kCaretWidth = 1;

// Half a pixel more than asked, so that rounding to whole pixels cannot take
// back what the growth gave.
double growth(int need, int room, int size) {
  if (need <= room || size <= 0) return 1;
  return 1 + (need - room + 0.5) / size;
}

QRect textRoom(const QWidget& widget) {
  if (auto* box = qobject_cast<const QCheckBox*>(&widget)) {
    QStyleOptionButton option;
    option.initFrom(box);
    option.text = box->text();
    return box->style()->subElementRect(QStyle::SE_CheckBoxContents, &option, box);
  }
  if (auto* button = qobject_cast<const QPushButton*>(&widget)) {
    QStyleOptionButton option;
    option.initFrom(button);
    option.text = button->text();
    if (button->isDefault()) option.features |= QStyleOptionButton::DefaultButton;
    if (button->autoDefault()) option.features |= QStyleOptionButton::AutoDefaultButton;
    return button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button);
  }
  if (auto* edit = qobject_cast<const QLineEdit*>(&widget)) {
    QStyleOptionFrame option;
    option.initFrom(edit);
    option.lineWidth =
        edit->hasFrame() ? edit->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, edit) : 0;
    const QRect contents = edit->style()->subElementRect(QStyle::SE_LineEditContents, &option, edit);
    const QMargins margins = edit->textMargins();
    return contents.marginsRemoved(margins).adjusted(kLineEditMarginX, kLineEditMarginY,
                                                     -kLineEditMarginX - kCaretWidth, -kLineEditMarginY);
  }
  if (auto* frame = qobject_cast<const ClassicFrame*>(&widget)) {
    const QRect caption = frame->captionRect();
    return QRect(caption.left(), 0, widget.width() - 2 * caption.left(), caption.height());
  }
  if (auto* label = qobject_cast<const QLabel*>(&widget)) return label->contentsRect();
  return widget.rect();
}

QString shownText(const QWidget& widget, const QString& sample) {
  QString text = sample;
  if (auto* button = qobject_cast<const QAbstractButton*>(&widget)) text = button->text();
  if (auto* label = qobject_cast<const QLabel*>(&widget)) text = label->text();
  if (auto* frame = qobject_cast<const ClassicFrame*>(&widget)) text = frame->caption();
  // An ampersand marks the access key and is not drawn.
  if (!qobject_cast<const QLabel*>(&widget)) text.remove(QLatin1Char('&'));
  return text;
}

}  // namespace

double growthForText(const QWidget& widget, const QString& sample) {
  const QString text = shownText(widget, sample);
  const bool field = qobject_cast<const QLineEdit*>(&widget) != nullptr;
  if (text.isEmpty() && !field) return 1;
  const QFontMetrics metrics = widget.fontMetrics();
  const QRect room = textRoom(widget);
  // The ink of the text from its origin: what a clip at the room's edge would cut.
  const int across = text.isEmpty() ? 0 : std::max(metrics.tightBoundingRect(text).right() + 1, 0);
  return std::max(growth(across, room.width(), widget.width()),
                  growth(metrics.height(), room.height(), widget.height()));
}

double growthForFrame(const ClassicFrame& frame, const QRect& inside) {
  if (inside.top() <= 0) return 1;
  int clear = frame.borderRect().top() + ClassicFrame::kLineWidth;
  if (inside.intersects(frame.captionRect())) clear = std::max(clear, frame.captionRect().bottom() + 1);
  return growth(clear, inside.top(), inside.top());
}

}  // namespace korvane
