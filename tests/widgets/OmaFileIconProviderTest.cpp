// The file icons: kinds by suffix whatever the case, folders by what is on disk, and artwork
// drawn at the size asked (no scaled-up pixmaps), different for each kind.
#include "widgets/OmaFileIconProvider.h"
#include "TestRegistry.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

namespace {

int opaquePixels(const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) > 0;
    return count;
}

} // namespace

class OmaFileIconProviderTest : public QObject
{
    Q_OBJECT
private slots:
    void kindsAndIcons()
    {
        using P = OmaFileIconProvider;
        QCOMPARE(P::kindOfSuffix("TIFF"), P::Image);
        QCOMPARE(P::kindOfSuffix("Otf"), P::Font);
        QCOMPARE(P::kindOfSuffix("pdf"), P::Document);
        QCOMPARE(P::kindOfSuffix(""), P::Generic);
        QCOMPARE(P::kindOfSuffix(QString(5000, 'x')), P::Generic);

        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        QVERIFY(QDir(dir.path()).mkdir("looks.png")); // a folder named like an image
        QCOMPARE(P::kindOf(QFileInfo(dir.filePath("looks.png"))), P::Folder);
        QCOMPARE(P::kindOf(QFileInfo(dir.filePath("missing.ttf"))), P::Font);
        QCOMPARE(P::kindOf(QFileInfo()), P::Generic);

        P provider;
        QCOMPARE(provider.type(QFileInfo(dir.filePath("a.jpg"))), QString("Image"));
        QImage images[P::Folder + 1];
        for (int kind = P::Generic; kind <= P::Folder; ++kind) {
            const QIcon icon = P::iconOf(P::Kind(kind));
            for (int size : { 16, 37, 128 }) {
                const QPixmap pixmap = icon.pixmap(QSize(size, size));
                QCOMPARE(qRound(pixmap.width() / pixmap.devicePixelRatio()), size);
                QVERIFY(opaquePixels(pixmap.toImage()) > size * size / 6);
            }
            images[kind] = icon.pixmap(QSize(32, 32)).toImage();
            for (int other = P::Generic; other < kind; ++other)
                QVERIFY(images[kind] != images[other]);
        }
        QCOMPARE(provider.icon(QFileIconProvider::Folder).pixmap(QSize(32, 32)).toImage(), images[P::Folder]);
        QCOMPARE(provider.icon(QFileIconProvider::Drive).pixmap(QSize(32, 32)).toImage(), images[P::Generic]);
        const QPixmap scaled = P::pixmapOf(P::Document, 16);
        QVERIFY(!scaled.isNull());
        // A kind out of range is the plain page.
        QCOMPARE(P::iconOf(P::Kind(99)).pixmap(QSize(32, 32)).toImage(), images[P::Generic]);
    }
};

TAVO_TEST(OmaFileIconProviderTest)
#include "OmaFileIconProviderTest.moc"
