// The library's resources are registered when it loads and have the sizes the style relies on.
#include "TestRegistry.h"
#include "style/Device.h"

#include <QIcon>
#include <QImage>
#include <QImageReader>
#include <QTest>

class StyleResourcesTest : public QObject
{
    Q_OBJECT

private slots:
    void styleImagesHaveTheirFileSizes_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QSize>("size");
        const struct
        {
            const char *name;
            int w, h;
        } images[] = { { "title_cap_left", 4, 18 }, { "title_cap_right", 4, 18 },
            { "title_stretch", 1, 18 }, { "slider_bar", 107, 9 }, { "slider_thumb_on", 13, 27 },
            { "radiobutton_off", 12, 14 }, { "radiobutton_on", 12, 14 },
            { "radiobutton-on", 12, 14 }, { "button_normal_cap_left", 10, 26 },
            { "button_normal_cap_right", 10, 26 }, { "button_normal_stretch", 1, 26 },
            { "button_pressed_cap_left", 17, 25 }, { "button_pressed_cap_right", 17, 25 },
            { "button_pressed_stretch", 15, 25 } };
        for (const auto &image : images)
            QTest::newRow(image.name)
                << QStringLiteral(":res/images/%1.png").arg(image.name) << QSize(image.w, image.h);
    }
    void styleImagesHaveTheirFileSizes()
    {
        QFETCH(QString, name);
        QFETCH(QSize, size);
        const QImage image(name);
        QVERIFY2(!image.isNull(), qPrintable(name));
        QCOMPARE(image.size(), size);
        QVERIFY(image.hasAlphaChannel());
    }

    void frameAndRadioImagesAreComplete()
    {
        for (const char *part : { "top", "topleft", "topright", "left", "right", "bottom",
                 "bottomleft", "bottomright" })
            QVERIFY2(!QImage(QStringLiteral(":res/images/frame_%1.png").arg(part)).isNull(), part);
        const QImage on(":res/images/radiobutton_on.png");
        QVERIFY(on != QImage(":res/images/radiobutton-on.png"));
        QVERIFY(on != QImage(":res/images/radiobutton_off.png"));
    }

    void iconsAreScalableVectors()
    {
        for (const char *name : { ":/TavoLib/Controls/check-undefined",
                 ":/TavoLib/Controls/combobox-arrow", ":/TavoLib/FontHandler/truetypefont-icon",
                 ":/TavoLib/FontHandler/opentypefont-icon",
                 ":/TavoLib/FontHandler/type1font-icon" }) {
            QImageReader reader(QString::fromLatin1(name));
            QCOMPARE(reader.format(), QByteArray("svg"));
            // The icon engine renders the vector at any requested size.
            const QPixmap big = QIcon(QString::fromLatin1(name)).pixmap(QSize(64, 64));
            QVERIFY2(big.width() == 64 || big.height() == 64, name);
        }
    }
};

TAVO_TEST(StyleResourcesTest)
#include "StyleResourcesTest.moc"
