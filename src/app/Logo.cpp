#include "app/Logo.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace app {

void paintLogo(QPainter& p, const QRectF& area)
{
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    // Everything is drawn on a 100 x 100 grid, centred in the area.
    const qreal side = qMin(area.width(), area.height());
    p.translate(area.center().x() - side / 2, area.center().y() - side / 2);
    p.scale(side / 100.0, side / 100.0);

    // Rounded tile.
    QLinearGradient tile(0, 0, 0, 100);
    tile.setColorAt(0, QColor(0x2f, 0x6f, 0xb3));
    tile.setColorAt(1, QColor(0x1d, 0x4a, 0x80));
    p.setPen(Qt::NoPen);
    p.setBrush(tile);
    p.drawRoundedRect(QRectF(2, 2, 96, 96), 18, 18);

    // Two pages of an open book.
    const QColor paper(0xfb, 0xfa, 0xf5);
    const QColor edge(0xd8, 0xd4, 0xc8);
    p.setPen(QPen(edge, 1.2));
    p.setBrush(paper);
    // The left page, and the right one as its mirror about the spine (x = 50).
    for (const int side : {-1, 1}) {
        auto x = [side](qreal offset) { return 50 + side * offset; };
        QPainterPath page;
        page.moveTo(50, 30);
        page.cubicTo(x(10), 24, x(24), 23, x(34), 26);
        page.lineTo(x(34), 76);
        page.cubicTo(x(24), 73, x(10), 74, 50, 80);
        page.closeSubpath();
        p.drawPath(page);
    }

    // Ruled lines on the left page.
    p.setPen(QPen(QColor(0x9d, 0xb7, 0xd5), 1.6, Qt::SolidLine, Qt::RoundCap));
    for (int i = 0; i < 4; ++i) {
        const qreal y = 38 + i * 9;
        p.drawLine(QPointF(22, y), QPointF(44, y + 2));
    }
    // A red margin line and a green tick on the right page.
    p.setPen(QPen(QColor(0xd9, 0x53, 0x4f), 1.4));
    p.drawLine(QPointF(58, 31), QPointF(58, 75));
    p.setPen(QPen(QColor(0x2e, 0x9e, 0x5b), 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QPainterPath tick;
    tick.moveTo(63, 52);
    tick.lineTo(69, 59);
    tick.lineTo(79, 42);
    p.setBrush(Qt::NoBrush);
    p.drawPath(tick);

    // The spine.
    p.setPen(QPen(edge.darker(115), 1.4));
    p.drawLine(QPointF(50, 30), QPointF(50, 80));
    p.restore();
}

QPixmap logoPixmap(int size, qreal devicePixelRatio)
{
    QPixmap pixmap(QSize(size, size) * devicePixelRatio);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paintLogo(painter, QRectF(0, 0, size, size));
    return pixmap;
}

} // namespace app
