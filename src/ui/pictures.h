#pragma once

#include <QColor>
#include <QPixmap>
#include <QString>

namespace sd::ui {

/// Renders a picture of the shared set (":/pictures/NAME.svg") at the given size. Every picture
/// below is drawn once for each size and kept.
QPixmap picture(const QString &name, QSize size);
/// A background picture covering `size` with its proportions kept (the overflow is cut off), opaque,
/// on the colour `under`.
QPixmap coveringPicture(const QString &name, QSize size, const QColor &under = Qt::black);
/// Renders a button: its state background with the icon on top.
enum class ButtonState { Normal, Lit, Pressed };
QPixmap buttonPicture(const QString &icon, ButtonState state, QSize size);

} // namespace sd::ui
