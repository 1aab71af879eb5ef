// The image preview: fitting keeps the aspect ratio, Ctrl+wheel and keys zoom, dragging pans,
// and files that are no readable image show a message rather than crash.
#include "widgets/ImagePreviewView.h"
#include "TestRegistry.h"

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace {

QImage sample(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(x % 256, y % 256, (x / 8 + y / 8) % 2 ? 255 : 0));
    return image;
}

void wheel(QWidget *target, const QPoint &at, int delta, Qt::KeyboardModifiers modifiers)
{
    QWheelEvent event(QPointF(at), QPointF(target->mapToGlobal(at)), QPoint(), QPoint(0, delta),
        Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(target, &event);
}

} // namespace

class ImagePreviewViewTest : public QObject
{
    Q_OBJECT
private slots:
    void fitsZoomsAndPans()
    {
        ImagePreviewView view;
        view.resize(300, 200);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        view.setImage(sample(800, 400));
        QVERIFY(view.fitToView());
        QRectF shown = view.displayedRect();
        QVERIFY(shown.width() <= view.viewport()->width() + 0.5);
        QCOMPARE(qRound(shown.width() / shown.height() * 100), 200); // the aspect ratio holds
        view.resize(200, 300); // fits again after a resize
        shown = view.displayedRect();
        QVERIFY(shown.width() <= view.viewport()->width() + 0.5);
        QCOMPARE(qRound(shown.width() / shown.height() * 100), 200);
        QVERIFY(!view.grab().isNull());

        QSignalSpy zoomed(&view, &ImagePreviewView::zoomChanged);
        const double fitted = view.zoom();
        wheel(view.viewport(), QPoint(50, 50), 120, Qt::NoModifier); // no Ctrl: no zoom
        QCOMPARE(view.zoom(), fitted);
        wheel(view.viewport(), QPoint(50, 50), 120, Qt::ControlModifier);
        QVERIFY(view.zoom() > fitted);
        QVERIFY(!view.fitToView());
        QCOMPARE(zoomed.count(), 1);
        QTest::keyClick(&view, Qt::Key_1, Qt::ControlModifier);
        QCOMPARE(view.zoom(), 1.0);
        QTest::keyClick(&view, Qt::Key_Plus, Qt::ControlModifier);
        QCOMPARE(view.zoom(), 1.25);
        QTest::keyClick(&view, Qt::Key_Minus);
        QCOMPARE(view.zoom(), 1.0);
        for (int i = 0; i < 100; ++i)
            QTest::keyClick(&view, Qt::Key_Plus);
        QCOMPARE(view.zoom(), ImagePreviewView::kMaxZoom);
        QVERIFY(!view.grab().isNull()); // the enlarged view draws only what shows
        QTest::keyClick(&view, Qt::Key_0, Qt::ControlModifier);
        QVERIFY(view.fitToView());
        QCOMPARE(view.zoom(), fitted);

        // Dragging pans the enlarged image.
        view.actualSize();
        const int before = view.horizontalScrollBar()->value();
        QTest::mousePress(view.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
        QMouseEvent move(QEvent::MouseMove, QPointF(60, 100), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &move);
        QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(60, 100));
        QCOMPARE(view.horizontalScrollBar()->value(), before + 40);
        QCOMPARE(view.displayedRect().left(), -double(before + 40));
    }

    void unreadableFilesShowAMessage()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        auto write = [&](const QString &name, const QByteArray &bytes) {
            QFile file(dir.filePath(name));
            file.open(QIODevice::WriteOnly);
            file.write(bytes);
            return file.fileName();
        };
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        sample(64, 32).save(&buffer, "PNG");
        const QString good = write("good.png", png);

        // A header claiming 30000 x 30000 pixels: refused before any allocation.
        const QByteArray huge = "P6 30000 30000 255\n" + QByteArray(64, 'x');

        ImagePreviewView view;
        view.resize(200, 150);
        view.show();
        QVERIFY(!view.message().isEmpty()); // no image yet
        const QStringList bad = { dir.filePath("missing.png"), write("empty.png", QByteArray()),
            write("text.png", "not an image at all"), write("cut.png", png.left(png.size() / 2)),
            write("huge.ppm", huge), dir.path(), QString() };
        for (const QString &name : bad) {
            QVERIFY(view.setFileName(good));
            QVERIFY(view.message().isEmpty());
            QVERIFY2(!view.setFileName(name), qPrintable(name));
            QVERIFY(view.image().isNull());
            QVERIFY(view.message().contains("cannot be shown"));
            if (name.endsWith(".ppm"))
                QVERIFY(view.message().contains("too large"));
            QVERIFY(!view.grab().isNull());
            // Zooming an empty view changes nothing and crashes nothing.
            wheel(view.viewport(), QPoint(10, 10), 120, Qt::ControlModifier);
            QTest::keyClick(&view, Qt::Key_Plus);
        }
        // Flipped bytes of a good file: an image or a message, never a crash.
        for (int i = 8; i < png.size(); i += 7) {
            QByteArray bytes = png;
            bytes[i] = char(bytes[i] ^ 0x5a);
            const bool shown = view.setFileName(write("flip.png", bytes));
            QCOMPARE(shown, view.message().isEmpty());
            QVERIFY(!view.grab().isNull());
        }
    }
};

TAVO_TEST(ImagePreviewViewTest)
#include "ImagePreviewViewTest.moc"
