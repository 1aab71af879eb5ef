// Draws the style's bitmap images (button caps, group box title, slider, radio indicators and
// the window frame) with QPainter and writes them as PNG files. It runs at build time; its
// output goes into the library's resources under :/res/images/. With --gallery it writes the
// images that the gallery application supplies in its own resources instead.
//
//     StyleImageGenerator OUTDIR          -> OUTDIR/<name>.png for every style image
//     StyleImageGenerator --gallery OUTDIR -> the gallery's application images
#include <QDir>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <cmath>
#include <cstdio>
#include <functional>

namespace {

using Draw = std::function<void(QPainter &, const QSize &)>;

bool write(const QString &dir, const QString &name, const QSize &size, const Draw &draw)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing, true);
        draw(painter, size);
    }
    const QString path = QDir(dir).filePath(name);
    if (!image.convertToFormat(QImage::Format_ARGB32).save(path, "PNG")) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
        return false;
    }
    return true;
}

// --- push buttons -------------------------------------------------------------------------

// A whole button face, painted into a canvas; the caps and the tile are slices of it.
QImage buttonFace(int width, int height, bool pressed)
{
    QImage face(width, height, QImage::Format_ARGB32_Premultiplied);
    face.fill(Qt::transparent);
    QPainter p(&face);
    p.setRenderHint(QPainter::Antialiasing, true);
    const QRectF body(1.5, 1.5, width - 3.0, height - 3.0);
    if (pressed) {
        // Flat inset face: even from top to bottom, so that any slice tiles cleanly.
        QPainterPath path;
        path.addRoundedRect(QRectF(0.5, 0.5, width - 1.0, height - 1.0), 8, 8);
        p.fillPath(path, QColor(112, 118, 126));
        QPainterPath inner;
        inner.addRoundedRect(QRectF(2.0, 2.0, width - 4.0, height - 4.0), 6.5, 6.5);
        p.fillPath(inner, QColor(138, 144, 152));
    } else {
        // Drop shadow line under the face.
        QPainterPath shadow;
        shadow.addRoundedRect(body.translated(0, 1.0), 4, 4);
        p.fillPath(shadow, QColor(0, 0, 0, 40));
        QLinearGradient fill(0, body.top(), 0, body.bottom());
        fill.setColorAt(0.0, QColor(255, 255, 255));
        fill.setColorAt(0.5, QColor(244, 245, 247));
        fill.setColorAt(1.0, QColor(218, 221, 226));
        QPainterPath path;
        path.addRoundedRect(body, 4, 4);
        p.fillPath(path, fill);
        p.setPen(QPen(QColor(142, 148, 156), 1.0));
        p.drawPath(path);
        // Inner highlight along the top edge.
        p.setPen(QPen(QColor(255, 255, 255, 200), 1.0));
        p.drawLine(
            QPointF(body.left() + 3, body.top() + 1), QPointF(body.right() - 3, body.top() + 1));
    }
    return face;
}

Draw slice(const QImage &face, int x)
{
    return [face, x](QPainter &p, const QSize &size) {
        p.setRenderHint(QPainter::Antialiasing, false);
        p.setCompositionMode(QPainter::CompositionMode_Source);
        p.drawImage(QPoint(0, 0), face, QRect(x, 0, size.width(), size.height()));
    };
}

// --- group box title ------------------------------------------------------------------------

QImage titleFace(int width, int height)
{
    QImage face(width, height, QImage::Format_ARGB32_Premultiplied);
    face.fill(Qt::transparent);
    QPainter p(&face);
    p.setRenderHint(QPainter::Antialiasing, true);
    // A tab that hangs from the top edge: square top, rounded bottom corners.
    QPainterPath path;
    const qreal r = 4.0;
    path.moveTo(0, 0);
    path.lineTo(width, 0);
    path.lineTo(width, height - r);
    path.quadTo(width, height, width - r, height);
    path.lineTo(r, height);
    path.quadTo(0, height, 0, height - r);
    path.closeSubpath();
    QLinearGradient fill(0, 0, 0, height);
    fill.setColorAt(0.0, QColor(92, 100, 112));
    fill.setColorAt(1.0, QColor(62, 68, 78));
    p.fillPath(path, fill);
    p.setPen(QPen(QColor(255, 255, 255, 40), 1.0));
    p.drawLine(QPointF(0, 0.5), QPointF(width, 0.5));
    return face;
}

// --- slider ---------------------------------------------------------------------------------

void sliderBar(QPainter &p, const QSize &size)
{
    const QRectF groove(0.5, 1.5, size.width() - 1.0, size.height() - 3.0);
    const qreal r = groove.height() / 2.0;
    QPainterPath path;
    path.addRoundedRect(groove, r, r);
    QLinearGradient fill(0, groove.top(), 0, groove.bottom());
    fill.setColorAt(0.0, QColor(150, 156, 164));
    fill.setColorAt(1.0, QColor(196, 200, 206));
    p.fillPath(path, fill);
    p.setPen(QPen(QColor(108, 114, 122), 1.0));
    p.drawPath(path);
    p.setPen(QPen(QColor(255, 255, 255, 160), 1.0));
    p.drawLine(QPointF(groove.left() + r, size.height() - 0.5),
        QPointF(groove.right() - r, size.height() - 0.5));
}

void sliderThumb(QPainter &p, const QSize &size)
{
    const QRectF body(1.5, 1.5, size.width() - 3.0, size.height() - 4.0);
    QPainterPath shadow;
    shadow.addRoundedRect(body.translated(0, 1.0), 5, 5);
    p.fillPath(shadow, QColor(0, 0, 0, 50));
    QPainterPath path;
    path.addRoundedRect(body, 5, 5);
    QLinearGradient fill(body.topLeft(), body.topRight());
    fill.setColorAt(0.0, QColor(255, 255, 255));
    fill.setColorAt(1.0, QColor(214, 218, 224));
    p.fillPath(path, fill);
    p.setPen(QPen(QColor(110, 116, 124), 1.0));
    p.drawPath(path);
    // Three grip lines in the middle.
    p.setPen(QPen(QColor(130, 136, 144), 1.0));
    const qreal cy = body.center().y();
    for (int i = -1; i <= 1; ++i)
        p.drawLine(QPointF(body.left() + 2.5, cy + i * 3), QPointF(body.right() - 2.5, cy + i * 3));
}

// --- radio indicators -----------------------------------------------------------------------

Draw radio(bool on, bool pressed)
{
    return [on, pressed](QPainter &p, const QSize &) {
        const QRectF ring(0.5, 0.5, 11.0, 11.0);
        // Soft shadow below the ring; the image is two pixels taller than the ring for it.
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0, 0, 0, 45));
        p.drawEllipse(ring.translated(0, 1.5));
        QLinearGradient fill(0, ring.top(), 0, ring.bottom());
        if (pressed) {
            fill.setColorAt(0.0, QColor(196, 200, 206));
            fill.setColorAt(1.0, QColor(226, 229, 233));
        } else {
            fill.setColorAt(0.0, QColor(255, 255, 255));
            fill.setColorAt(1.0, QColor(226, 229, 233));
        }
        p.setBrush(fill);
        p.setPen(QPen(QColor(112, 118, 126), 1.0));
        p.drawEllipse(ring);
        if (on) {
            QRadialGradient dot(QPointF(5.3, 5.0), 3.5);
            dot.setColorAt(0.0, pressed ? QColor(70, 150, 70) : QColor(76, 170, 76));
            dot.setColorAt(1.0, pressed ? QColor(24, 96, 24) : QColor(31, 127, 31));
            p.setPen(Qt::NoPen);
            p.setBrush(dot);
            p.drawEllipse(QRectF(3.0, 3.0, 6.0, 6.0));
        }
    };
}

// --- frame ----------------------------------------------------------------------------------

// A soft shadow around a window: the eight pieces are slices of one shadowed square.
QImage frameFace(int edge)
{
    const int side = edge * 2 + 1;
    QImage face(side, side, QImage::Format_ARGB32_Premultiplied);
    face.fill(Qt::transparent);
    QPainter p(&face);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const int dx = qMax(0, qAbs(x - edge) - 0);
            const int dy = qMax(0, qAbs(y - edge) - 0);
            const double d = qMax(dx, dy) == 0 ? 0.0 : std::sqrt(double(dx * dx + dy * dy));
            const double t = qBound(0.0, 1.0 - d / edge, 1.0);
            face.setPixel(x, y, qPremultiply(qRgba(0, 0, 0, int(90 * t * t))));
        }
    }
    return face;
}

bool writeStyleImages(const QString &dir)
{
    bool ok = true;
    const QImage normal = buttonFace(40, 26, false);
    ok &= write(dir, "button_normal_cap_left.png", { 10, 26 }, slice(normal, 0));
    ok &= write(dir, "button_normal_cap_right.png", { 10, 26 }, slice(normal, 30));
    ok &= write(dir, "button_normal_stretch.png", { 1, 26 }, slice(normal, 20));
    const QImage pressed = buttonFace(49, 25, true);
    ok &= write(dir, "button_pressed_cap_left.png", { 17, 25 }, slice(pressed, 0));
    ok &= write(dir, "button_pressed_cap_right.png", { 17, 25 }, slice(pressed, 32));
    ok &= write(dir, "button_pressed_stretch.png", { 15, 25 }, slice(pressed, 17));

    const QImage title = titleFace(20, 18);
    ok &= write(dir, "title_cap_left.png", { 4, 18 }, slice(title, 0));
    ok &= write(dir, "title_cap_right.png", { 4, 18 }, slice(title, 16));
    ok &= write(dir, "title_stretch.png", { 1, 18 }, slice(title, 10));

    ok &= write(dir, "slider_bar.png", { 107, 9 }, sliderBar);
    ok &= write(dir, "slider_thumb_on.png", { 13, 27 }, sliderThumb);

    ok &= write(dir, "radiobutton_off.png", { 12, 14 }, radio(false, false));
    ok &= write(dir, "radiobutton_on.png", { 12, 14 }, radio(true, false));
    ok &= write(dir, "radiobutton-on.png", { 12, 14 }, radio(true, true));

    const int edge = 8;
    const QImage frame = frameFace(edge);
    ok &= write(dir, "frame_topleft.png", { edge, edge }, slice(frame, 0));
    ok &= write(dir, "frame_topright.png", { edge, edge }, slice(frame, edge + 1));
    ok &= write(dir, "frame_top.png", { 1, edge }, slice(frame, edge));
    const auto lower = [frame, edge](int x) {
        return [frame, edge, x](QPainter &p, const QSize &size) {
            p.setCompositionMode(QPainter::CompositionMode_Source);
            p.drawImage(QPoint(0, 0), frame, QRect(x, edge + 1, size.width(), size.height()));
        };
    };
    ok &= write(dir, "frame_bottomleft.png", { edge, edge }, lower(0));
    ok &= write(dir, "frame_bottomright.png", { edge, edge }, lower(edge + 1));
    ok &= write(dir, "frame_bottom.png", { 1, edge }, lower(edge));
    const auto middle = [frame, edge](int x) {
        return [frame, edge, x](QPainter &p, const QSize &size) {
            p.setCompositionMode(QPainter::CompositionMode_Source);
            p.drawImage(QPoint(0, 0), frame, QRect(x, edge, size.width(), size.height()));
        };
    };
    ok &= write(dir, "frame_left.png", { edge, 1 }, middle(0));
    ok &= write(dir, "frame_right.png", { edge, 1 }, middle(edge + 1));
    return ok;
}

// --- the gallery's application images --------------------------------------------------------

void chevron(QPainter &p, const QSize &size, bool up)
{
    const qreal w = size.width();
    const qreal h = size.height();
    QPainterPath path;
    if (up) {
        path.moveTo(w / 2, 1.5);
        path.lineTo(w - 2, h - 1.5);
        path.lineTo(2, h - 1.5);
    } else {
        path.moveTo(2, 1.5);
        path.lineTo(w - 2, 1.5);
        path.lineTo(w / 2, h - 1.5);
    }
    path.closeSubpath();
    p.fillPath(path, QColor(90, 96, 104));
}

bool writeGalleryImages(const QString &dir)
{
    bool ok = true;
    ok &= write(dir, "yes.png", { 12, 12 }, [](QPainter &p, const QSize &) {
        p.setPen(QPen(QColor(31, 127, 31), 2.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.drawPolyline(QPolygonF({ QPointF(2, 6.5), QPointF(5, 9.5), QPointF(10, 2.5) }));
    });
    ok &= write(dir, "lessoptions_icon.png", { 16, 8 },
        [](QPainter &p, const QSize &s) { chevron(p, s, true); });
    ok &= write(dir, "moreoptions_icon.png", { 16, 8 },
        [](QPainter &p, const QSize &s) { chevron(p, s, false); });
    ok &= write(dir, "combobox_tool_arrow.png", { 8, 6 }, [](QPainter &p, const QSize &) {
        QPainterPath path;
        path.moveTo(0.5, 1);
        path.lineTo(6.5, 1);
        path.lineTo(3.5, 4.5);
        path.closeSubpath();
        p.fillPath(path, QColor(60, 60, 60));
    });
    ok &= write(dir, "combobox_arrows.png", { 5, 13 }, [](QPainter &p, const QSize &) {
        QPainterPath path;
        path.moveTo(0, 5);
        path.lineTo(2.5, 1.5);
        path.lineTo(5, 5);
        path.closeSubpath();
        path.moveTo(0, 8);
        path.lineTo(5, 8);
        path.lineTo(2.5, 11.5);
        path.closeSubpath();
        p.fillPath(path, QColor(60, 60, 60));
    });
    return ok;
}

} // namespace

int main(int argc, char **argv)
{
    const bool gallery = argc == 3 && QByteArray(argv[1]) == "--gallery";
    if (argc != 2 && !gallery) {
        std::fprintf(stderr, "usage: %s [--gallery] OUTDIR\n", argv[0]);
        return 2;
    }
    const QString dir = QString::fromLocal8Bit(argv[argc - 1]);
    QDir().mkpath(dir);
    return (gallery ? writeGalleryImages(dir) : writeStyleImages(dir)) ? 0 : 1;
}
