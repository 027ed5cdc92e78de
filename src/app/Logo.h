#pragma once
// The program's picture: an open class book with a ruled page and a tick,
// drawn in code so that it is sharp at any size.
#include <QPixmap>

class QPainter;
class QRectF;

namespace app {

void paintLogo(QPainter& painter, const QRectF& area);
QPixmap logoPixmap(int size, qreal devicePixelRatio = 1.0);

} // namespace app
