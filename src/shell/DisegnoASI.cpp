#include "shell/DisegnoASI.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmapCache>

namespace {

const QColor Carrozzeria(0x7A, 0x1F, 0x24);
const QColor Scuro(0x2B, 0x2B, 0x2B);
const QColor Cromo(0xB8, 0xB8, 0xB0);

void ruota(QPainter& pittore, QPointF centro) {
    pittore.setPen(QPen(Scuro, 5));
    pittore.setBrush(Qt::white);
    pittore.drawEllipse(centro, 17, 17);
    pittore.setPen(QPen(Cromo, 1));
    for (int raggio = 0; raggio < 8; ++raggio) {
        QTransform giro;
        giro.translate(centro.x(), centro.y()).rotate(raggio * 22.5);
        pittore.drawLine(giro.map(QPointF(-14, 0)), giro.map(QPointF(14, 0)));
    }
    pittore.setPen(Qt::NoPen);
    pittore.setBrush(Carrozzeria);
    pittore.drawEllipse(centro, 4, 4);
}

QPainterPath scocca() {
    QPainterPath sagoma(QPointF(22, 72));
    sagoma.cubicTo(20, 56, 30, 50, 44, 48);  // tail
    sagoma.lineTo(66, 46);
    sagoma.cubicTo(70, 58, 92, 58, 98, 46);  // cockpit
    sagoma.lineTo(106, 44);
    sagoma.cubicTo(140, 42, 170, 44, 192, 50);  // bonnet
    sagoma.cubicTo(206, 54, 208, 62, 206, 72);
    sagoma.closeSubpath();
    return sagoma;
}

}  // namespace

QPixmap disegnoASI(double scala) {
    const QString Chiave = QStringLiteral("disegnoASI%1").arg(scala);
    QPixmap disegno;
    if (QPixmapCache::find(Chiave, &disegno))
        return disegno;
    disegno = QPixmap(QSize(230, 110) * scala);
    disegno.setDevicePixelRatio(scala);
    disegno.fill(Qt::transparent);
    QPainter pittore(&disegno);
    pittore.setRenderHint(QPainter::Antialiasing);
    pittore.setPen(QPen(Cromo, 2));
    pittore.drawLine(QPointF(6, 94), QPointF(224, 94));
    pittore.setPen(QPen(Scuro, 2));
    pittore.drawLine(QPointF(104, 46), QPointF(96, 26));  // windscreen
    pittore.setPen(QPen(Scuro, 1.5));
    pittore.setBrush(Carrozzeria);
    pittore.drawPath(scocca());
    pittore.setBrush(Scuro);
    pittore.drawRoundedRect(QRectF(66, 70, 92, 6), 3, 3);  // running board
    pittore.setPen(QPen(Cromo, 1.5));
    for (int feritoia = 0; feritoia < 7; ++feritoia)
        pittore.drawLine(QPointF(124 + feritoia * 8, 52), QPointF(121 + feritoia * 8, 64));
    pittore.setBrush(QColor(0xF5, 0xE6, 0xA0));
    pittore.drawEllipse(QPointF(208, 56), 6, 7);  // headlamp
    ruota(pittore, {48, 76});
    ruota(pittore, {176, 76});
    pittore.end();
    QPixmapCache::insert(Chiave, disegno);
    return disegno;
}
