// Device at the density of the run (96, 120 or 144 logical dpi, one process each): scaling of
// numbers, sizes, pixmaps and widget trees, and the keyed pixmap cache.
#include "style/Device.h"
#include "TestRegistry.h"

#include <QComboBox>
#include <QDialog>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPixmapCache>
#include <QProxyStyle>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QTest>
#include <QVBoxLayout>

// A panel style is recognised by this class name anywhere in the style's inheritance.
namespace Panels {
class PanelStyle : public QProxyStyle
{
    Q_OBJECT
};
} // namespace Panels

class DerivedPanelStyle : public Panels::PanelStyle
{
    Q_OBJECT
};

using TavoLib::Device;

namespace {

bool cached(const QString &key, QPixmap *found = nullptr)
{
    QPixmap scratch;
    return QPixmapCache::find(QStringLiteral("Device/Name: ") + key, found ? found : &scratch);
}

} // namespace

class DeviceTest : public QObject
{
    Q_OBJECT

    double factor() const { return QGuiApplication::primaryScreen()->logicalDotsPerInch() / 96.0; }
    int near(double v) const { return int(v * factor() + 0.5); }
    int trunc(double v) const { return int(v * factor()); }

private slots:
    // Must run first: nothing in this process has called Device::scale yet.
    void scalesNumbersSizesAndPixmaps()
    {
        QCOMPARE(Device::scale(7.0), 7.0 * factor());
        QCOMPARE(Device::pixelRatio(), qApp->devicePixelRatio());
        // Rounded to nearest, written out for the densities that have their own runs.
        QSize nine = QSize(9, 10), icon = QSize(12, 12), large = QSize(20, 20);
        if (qFuzzyCompare(factor(), 1.25))
            nine = QSize(11, 13), icon = QSize(15, 15), large = QSize(25, 25);
        else if (qFuzzyCompare(factor(), 1.5))
            nine = QSize(14, 15), icon = QSize(18, 18), large = QSize(30, 30);
        QCOMPARE(Device::scaleSize(QSize(9, 10)), nine);
        QCOMPARE(Device::size(Device::SizeType0), icon);
        QCOMPARE(Device::size(Device::SizeType4), large);
        for (int bad : { 11, -1 }) {
            const auto type = Device::SizeType(bad);
            QVERIFY(!Device::unscaledSize(type).isValid());
            // Not null by the test of size(), so it is scaled like any other size.
            QCOMPARE(Device::size(type), Device::scaleSize(QSize(-1, -1)));
            QVERIFY(Device::pixmap(QIcon(":/TavoLib/Controls/check-undefined"), type).isNull());
        }

        QPixmap big(40, 40);
        big.fill(Qt::red);
        const QPixmap same = Device::scale(big, 12, 12);
        if (qFuzzyCompare(factor(), 1.0)) {
            // Compared against the numbers, not the pixmap: a 40 x 40 pixmap is kept as is.
            QCOMPARE(same.cacheKey(), big.cacheKey());
        } else {
            QCOMPARE(same.size(), QSize(near(12), near(12)));
        }
    }

    void scalesWidgetLimitsAndDialogs()
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
        QCOMPARE(limited->maximumSize(), QSize(trunc(9), 0));
        QCOMPARE(free->minimumSize(), QSize(0, 0));
        QCOMPARE(free->maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
        QCOMPARE(root.maximumSize(), QSize(QWIDGETSIZE_MAX, trunc(50)));

        // A dialog is shrunk to its minimum size hint.
        QDialog dialog;
        auto *layout = new QVBoxLayout(&dialog);
        layout->addWidget(new QWidget);
        layout->itemAt(0)->widget()->setMinimumSize(200, 100);
        dialog.resize(600, 600);
        Device::scale(&dialog);
        QCOMPARE(dialog.size(), dialog.minimumSizeHint());
        QVERIFY(dialog.width() < 600);
    }

    // Under a panel style (the root's style counts), controls whose height the style fixes get
    // only their widths scaled, truncated; the rest take the general path.
    void panelStyleScalesOnlyWidthsOfFramedControls()
    {
        DerivedPanelStyle style;
        QWidget root;
        root.setStyle(&style);
        auto *button = new QPushButton(&root);
        button->setMinimumWidth(100);
        button->setFixedHeight(30);
        auto *edit = new QLineEdit(&root);
        edit->setMinimumSize(101, 10);
        auto *spin = new QSpinBox(&root);
        spin->setMaximumSize(99, 40);
        auto *header = new QHeaderView(Qt::Horizontal, &root);
        header->setMinimumHeight(21);
        auto *frameless = new QComboBox(&root);
        frameless->setFrame(false);
        frameless->setMinimumSize(50, 21);
        auto *vertical = new QHeaderView(Qt::Vertical, &root);
        vertical->setMinimumSize(9, 9);
        QWidget plainRoot;
        auto *styledChild = new QPushButton(&plainRoot);
        styledChild->setStyle(&style);
        styledChild->setFixedHeight(30);

        Device::scale(&root);
        Device::scale(&plainRoot);

        QCOMPARE(button->minimumSize(), QSize(trunc(100), 30));
        QCOMPARE(button->maximumHeight(), 30);
        QCOMPARE(edit->minimumSize(), QSize(trunc(101), 10));
        QCOMPARE(spin->maximumSize(), QSize(trunc(99), 40));
        QCOMPARE(header->minimumHeight(), 21);
        QCOMPARE(frameless->minimumSize(), QSize(near(50), near(21)));
        QCOMPARE(vertical->minimumSize(), QSize(near(9), near(9)));
        QCOMPARE(styledChild->minimumHeight(), near(30));
        QCOMPARE(styledChild->maximumHeight(), trunc(30));
    }

    void namedPixmapsAreCachedPerSizeAndColour()
    {
        QPixmapCache::clear();
        const QString name = QStringLiteral(":/TavoLib/Controls/combobox-arrow");
        const QColor red(Qt::red), blue(Qt::blue);
        QColor halfRed(Qt::red);
        halfRed.setAlpha(128);
        QCOMPARE(Device::logicalSize(Device::pixmap(name, 8, 8)), QSize(near(8), near(8)));
        const QPixmap r = Device::pixmap(name, 8, 8, &red);
        QVERIFY(r.cacheKey() != Device::pixmap(name, 8, 8, &blue).cacheKey());
        QCOMPARE(Device::pixmap(name, 8, 8, &halfRed).cacheKey(), r.cacheKey());
        for (const char *colour : { "#ff0000", "#0000ff", "none" })
            QVERIFY2(cached(name + "/Width: 8/Height: 8/Color: " + colour), colour);

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

        QVERIFY(!cached(name + "/SizeType: 3/Color: none"));
        QCOMPARE(Device::logicalSize(Device::pixmap(name, Device::SizeType3)),
            Device::size(Device::SizeType3));
        QVERIFY(cached(name + "/SizeType: 3/Color: none"));

        // A "%1" in a name is text, not a place for the next number.
        const QString odd = QStringLiteral(":/no/such%1%2");
        Device::pixmap(odd, 8, 8);
        Device::pixmap(odd, 8, &red);
        Device::pixmap(odd, Device::SizeType3);
        Device::pixmap(odd);
        for (const char *key : { "/Width: 8/Height: 8/Color: none", "/Height: 8/Color: #ff0000",
                 "/SizeType: 3/Color: none", "/Color: none" })
            QVERIFY2(cached(odd + key), key);
    }

    void missingNamesCacheNullsAndUnnamedIconsNothing()
    {
        QPixmapCache::clear();
        const QString name = QStringLiteral(":/TavoLib/does-not-exist");
        QVERIFY(Device::pixmap(name, 12, 12).isNull());
        QVERIFY(Device::pixmap(name, 12).isNull());
        QVERIFY(Device::pixmap(name).isNull());
        QVERIFY(Device::pixmap(name, Device::SizeType0).isNull());
        for (const char *key : { "/Width: 12/Height: 12/Color: none", "/Color: none" }) {
            QPixmap found(3, 3);
            QVERIFY2(cached(name + key, &found), key);
            QVERIFY(found.isNull());
        }

        QPixmap source(16, 16);
        source.fill(Qt::green);
        QVERIFY(!Device::pixmap(QIcon(source), 16, 16).isNull());
        QVERIFY(!cached(QStringLiteral("/Width: 16/Height: 16/Color: none")));
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
        QCOMPARE(Device::logicalSize(natural), Device::scaleSize(QSize(107, 9)));
        // Vector icons render at the scaled size asked for.
        const QPixmap svg
            = Device::pixmap(QStringLiteral(":/TavoLib/Controls/combobox-arrow"), 48, 48);
        QCOMPARE(Device::logicalSize(svg), QSize(near(48), near(48)));
    }
};

TAVO_TEST(DeviceTest)
#include "DeviceTest.moc"
