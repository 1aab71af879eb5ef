// Device at the density of the run (96, 120 or 144 logical dpi, one process each): scaling of
// numbers, sizes, pixmaps and widget trees, and the keyed pixmap cache.
#include "style/Device.h"
#include "TestRegistry.h"

#include <QDialog>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmapCache>
#include <QScreen>
#include <QTest>
#include <QVBoxLayout>

using TavoLib::Device;

class DeviceTest : public QObject
{
    Q_OBJECT

    double factor() const { return QGuiApplication::primaryScreen()->logicalDotsPerInch() / 96.0; }
    int near(double v) const { return int(v * factor() + 0.5); }

private slots:
    // Must run first: nothing in this process has called Device::scale yet.
    void stateBeforeFirstScale()
    {
        QCOMPARE(Device::pixelRatio(), 1.0);
        const QImage image = Device::emptyImage(QSize(10, 10));
        QCOMPARE(image.size(), QSize(11, 11));
        QCOMPARE(image.format(), QImage::Format_ARGB32);
        QCOMPARE(Device::emptyPixmap(QSize(10, 4)).size(), QSize(11, 5));
    }

    void scalesNumbersAndSizes()
    {
        const double f = factor();
        QCOMPARE(Device::scale(7.0), 7.0 * f);
        QCOMPARE(Device::scale(0.0), 0.0);
        QCOMPARE(Device::scaleSize(QSize(12, 12)), QSize(near(12), near(12)));
        // 9 at 120 dpi is 11.25 and rounds down; 10 is 12.5 and rounds up.
        QCOMPARE(Device::scaleSize(QSize(9, 10)), QSize(near(9), near(10)));
        QCOMPARE(Device::pixelRatio(), qApp->devicePixelRatio());
    }

    void sizeTypes()
    {
        const int expected[11] = { 12, 16, 16, 12, 20, 12, 12, 12, 32, 16, 16 };
        for (int t = 0; t <= 10; ++t) {
            const auto type = Device::SizeType(t);
            QCOMPARE(Device::unscaledSize(type), QSize(expected[t], expected[t]));
            QCOMPARE(Device::size(type), QSize(near(expected[t]), near(expected[t])));
        }
        if (qFuzzyCompare(factor(), 1.25)) {
            QCOMPARE(Device::size(Device::SizeType0), QSize(15, 15));
            QCOMPARE(Device::size(Device::SizeType4), QSize(25, 25));
        }
        for (int bad : { 11, -1 }) {
            const auto type = Device::SizeType(bad);
            QVERIFY(!Device::unscaledSize(type).isValid());
            // Not null by the test of size(), so it is scaled like any other size.
            QCOMPARE(Device::size(type), Device::scaleSize(QSize(-1, -1)));
            QVERIFY(Device::pixmap(QIcon(":/TavoLib/Controls/check-undefined"), type).isNull());
        }
    }

    void scalesPixmapsOnlyWhenTheNumbersChange()
    {
        QPixmap big(40, 40);
        big.fill(Qt::red);
        const QPixmap same = Device::scale(big, 12, 12);
        if (qFuzzyCompare(factor(), 1.0)) {
            // Compared against the numbers, not the pixmap: a 40 x 40 pixmap is kept as is.
            QCOMPARE(same.size(), QSize(40, 40));
            QCOMPARE(same.cacheKey(), big.cacheKey());
        } else {
            QCOMPARE(same.size(), QSize(near(12), near(12)));
        }
    }

    void scalesWidgetLimits()
    {
        QWidget root;
        auto *minOnly = new QWidget(&root);
        minOnly->setMinimumWidth(100);
        auto *limited = new QWidget(&root);
        limited->setMinimumSize(9, 9);
        limited->setMaximumSize(9, 0);
        auto *free = new QWidget(&root);
        root.setMaximumHeight(50);
        QCOMPARE(Device::scale(&root), &root);

        QCOMPARE(minOnly->minimumSize(), QSize(near(100), 0));
        QCOMPARE(minOnly->maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
        // Minimum rounds to nearest, maximum truncates; a maximum of 0 stays 0.
        QCOMPARE(limited->minimumSize(), QSize(near(9), near(9)));
        QCOMPARE(limited->maximumSize(), QSize(int(9 * factor()), 0));
        QCOMPARE(free->minimumSize(), QSize(0, 0));
        QCOMPARE(free->maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
        QCOMPARE(root.maximumSize(), QSize(QWIDGETSIZE_MAX, int(50 * factor())));
        QVERIFY(Device::scale(static_cast<QWidget *>(nullptr)) == nullptr);
    }

    void resizesDialogsToTheirMinimumHint()
    {
        QDialog dialog;
        auto *layout = new QVBoxLayout(&dialog);
        auto *child = new QWidget;
        child->setMinimumSize(200, 100);
        layout->addWidget(child);
        dialog.resize(600, 600);
        Device::scale(&dialog);
        QCOMPARE(dialog.size(), dialog.minimumSizeHint());
        QVERIFY(dialog.width() < 600);
    }

    void namedPixmapsAreCachedPerSizeAndColour()
    {
        QPixmapCache::clear();
        const QString name = QStringLiteral(":/TavoLib/Controls/combobox-arrow");
        const QColor red(Qt::red), blue(Qt::blue);
        QColor halfRed(Qt::red);
        halfRed.setAlpha(128);
        const QPixmap plain = Device::pixmap(name, 8, 8);
        QCOMPARE(plain.size(), QSize(near(8), near(8)));
        const QPixmap r = Device::pixmap(name, 8, 8, &red);
        const QPixmap b = Device::pixmap(name, 8, 8, &blue);
        QVERIFY(r.cacheKey() != b.cacheKey());
        QCOMPARE(Device::pixmap(name, 8, 8, &halfRed).cacheKey(), r.cacheKey());
        QPixmap found;
        QVERIFY(QPixmapCache::find(
            QStringLiteral("Device/Name: %1/Width: 8/Height: 8/Color: #ff0000").arg(name), &found));
        QVERIFY(QPixmapCache::find(
            QStringLiteral("Device/Name: %1/Width: 8/Height: 8/Color: #0000ff").arg(name), &found));
        QVERIFY(QPixmapCache::find(
            QStringLiteral("Device/Name: %1/Width: 8/Height: 8/Color: none").arg(name), &found));

        // The recoloured pixmap keeps the shape and takes the colour.
        const QImage image = r.toImage().convertToFormat(QImage::Format_ARGB32);
        bool sawRed = false;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const QRgb px = image.pixel(x, y);
                if (qAlpha(px) > 200) {
                    QCOMPARE(qRed(px), 255);
                    QCOMPARE(qBlue(px), 0);
                    sawRed = true;
                }
            }
        QVERIFY(sawRed);

        QVERIFY(QPixmapCache::find(
                    QStringLiteral("Device/Name: %1/SizeType: 3/Color: none").arg(name), &found)
            == false);
        QCOMPARE(Device::pixmap(name, Device::SizeType3).size(), Device::size(Device::SizeType3));
        QVERIFY(QPixmapCache::find(
            QStringLiteral("Device/Name: %1/SizeType: 3/Color: none").arg(name), &found));
    }

    void missingNamesStoreNullPixmaps()
    {
        QPixmapCache::clear();
        const QString name = QStringLiteral(":/TavoLib/does-not-exist");
        QVERIFY(Device::pixmap(name, 12, 12).isNull());
        QVERIFY(Device::pixmap(name, 12).isNull());
        QVERIFY(Device::pixmap(name).isNull());
        QVERIFY(Device::pixmap(name, Device::SizeType0).isNull());
        QPixmap found(3, 3);
        QVERIFY(QPixmapCache::find(
            QStringLiteral("Device/Name: %1/Width: 12/Height: 12/Color: none").arg(name), &found));
        QVERIFY(found.isNull());
        QVERIFY(
            QPixmapCache::find(QStringLiteral("Device/Name: %1/Color: none").arg(name), &found));
        QVERIFY(found.isNull());
    }

    void unnamedIconsAreNeverCached()
    {
        QPixmapCache::clear();
        QPixmap source(16, 16);
        source.fill(Qt::green);
        const QIcon icon(source);
        QVERIFY(icon.name().isEmpty());
        const QPixmap first = Device::pixmap(icon, 16, 16);
        QVERIFY(!first.isNull());
        QPixmap found;
        QVERIFY(!QPixmapCache::find(
            QStringLiteral("Device/Name: /Width: 16/Height: 16/Color: none"), &found));
    }

    void heightFormKeepsAspectOfWideImages()
    {
        // The slider bar is 107 x 9: asked for by height it keeps its width.
        const QPixmap bar = Device::pixmap(QStringLiteral(":res/images/slider_bar.png"), 9);
        QCOMPARE(bar.height(), qMin(9, near(9)));
        QVERIFY(bar.width() > 10 * bar.height());
        // An upright image gets a square request and fits in it.
        const QPixmap thumb = Device::pixmap(QStringLiteral(":res/images/slider_thumb_on.png"), 27);
        QVERIFY(thumb.width() <= thumb.height());
        // Natural size, scaled like scaleSize.
        const QPixmap natural = Device::pixmap(QStringLiteral(":res/images/slider_bar.png"));
        QCOMPARE(natural.size(), Device::scaleSize(QSize(107, 9)));
    }

    void vectorIconsRenderCrispAtAnySize()
    {
        const char *names[] = { ":/TavoLib/Controls/check-undefined",
            ":/TavoLib/Controls/combobox-arrow", ":/TavoLib/FontHandler/truetypefont-icon",
            ":/TavoLib/FontHandler/opentypefont-icon", ":/TavoLib/FontHandler/type1font-icon" };
        for (const char *name : names) {
            const QPixmap small = Device::pixmap(QString::fromLatin1(name), 12, 12);
            const QPixmap large = Device::pixmap(QString::fromLatin1(name), 48, 48);
            QVERIFY2(!small.isNull(), name);
            QCOMPARE(small.size(), QSize(near(12), near(12)));
            // Rendered from the vector source, not enlarged from a small bitmap.
            QCOMPARE(large.size(), QSize(near(48), near(48)));
        }
    }

    void viewScaleUsesTheScreenResolution()
    {
        QScreen *screen = QGuiApplication::primaryScreen();
        double dpi = screen->physicalDotsPerInch();
        if (qIsInf(dpi))
            dpi = screen->logicalDotsPerInch();
        QCOMPARE(Device::viewScale(72.0), dpi);
        QCOMPARE(Device::viewScale(0.0), 0.0);
    }
};

TAVO_TEST(DeviceTest)
#include "DeviceTest.moc"
