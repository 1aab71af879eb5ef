#include "widgets/OmaFileIconProvider.h"

#include "style/Device.h"

#include <QFileInfo>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

using TavoLib::Device;

namespace {

// The artwork, on a 32-unit grid; strokes and fills in the library's quiet colours.
const char kPage[] = "<path d='M7 3h13l6 6v20H7z' fill='#ffffff' stroke='#5f6b7a' stroke-width='1.5'/>"
                     "<path d='M20 3v6h6' fill='#dde3ea' stroke='#5f6b7a' stroke-width='1.5'/>";

const char *artwork(OmaFileIconProvider::Kind kind)
{
    switch (kind) {
    case OmaFileIconProvider::Document:
        return "<path d='M7 3h13l6 6v20H7z' fill='#ffffff' stroke='#2f5d8a' stroke-width='1.5'/>"
               "<path d='M20 3v6h6' fill='#d4e3f2' stroke='#2f5d8a' stroke-width='1.5'/>"
               "<rect x='10' y='12' width='6' height='6' fill='#2f7fd0'/>"
               "<path d='M18 13h5M18 16h5M10 21h13M10 24h13' stroke='#2f5d8a' stroke-width='1.5'/>";
    case OmaFileIconProvider::Image:
        return "<rect x='4' y='6' width='24' height='20' rx='1.5' fill='#ffffff' stroke='#4f7a3a' stroke-width='1.5'/>"
               "<circle cx='11' cy='12' r='2.5' fill='#e9b52e'/>"
               "<path d='M6 24l7-8 5 5 3-3 5 6z' fill='#5f9e46'/>";
    case OmaFileIconProvider::Font:
        return "<path d='M7 3h13l6 6v20H7z' fill='#ffffff' stroke='#8a3f2f' stroke-width='1.5'/>"
               "<path d='M20 3v6h6' fill='#f2ddd4' stroke='#8a3f2f' stroke-width='1.5'/>"
               "<path d='M10.5 25l5.5-13 5.5 13M12.5 20.5h7' fill='none' stroke='#b0452c' stroke-width='2'/>";
    case OmaFileIconProvider::Folder:
        return "<path d='M3 8h9l3 3h14v15H3z' fill='#f0c75e' stroke='#9a7422' stroke-width='1.5'/>"
               "<path d='M3 13h26' stroke='#9a7422' stroke-width='1'/>";
    case OmaFileIconProvider::Generic:
        break;
    }
    return kPage;
}

// Draws the artwork at whatever size is asked, so no pixmap is ever scaled up.
class ArtworkEngine : public QIconEngine
{
public:
    explicit ArtworkEngine(OmaFileIconProvider::Kind kind) : mKind(kind)
    {
        mRenderer.load(QByteArray("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 32 32'>")
            + artwork(kind) + "</svg>");
    }
    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        painter->save();
        if (mode == QIcon::Disabled)
            painter->setOpacity(painter->opacity() * 0.4);
        mRenderer.render(painter, rect);
        painter->restore();
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }
    QSize actualSize(const QSize &size, QIcon::Mode, QIcon::State) override { return size; }
    QIconEngine *clone() const override { return new ArtworkEngine(mKind); }
    QString key() const override { return QStringLiteral("OmaFileIconProvider"); }

private:
    OmaFileIconProvider::Kind mKind;
    QSvgRenderer mRenderer;
};

} // namespace

OmaFileIconProvider::OmaFileIconProvider() = default;
OmaFileIconProvider::~OmaFileIconProvider() = default;

QIcon OmaFileIconProvider::icon(IconType type) const
{
    return iconOf(type == QFileIconProvider::Folder ? Kind::Folder : Generic);
}

QIcon OmaFileIconProvider::icon(const QFileInfo &info) const
{
    return iconOf(kindOf(info));
}

QString OmaFileIconProvider::type(const QFileInfo &info) const
{
    switch (kindOf(info)) {
    case Document:
        return QObject::tr("Document");
    case Image:
        return QObject::tr("Image");
    case Font:
        return QObject::tr("Font");
    case Kind::Folder:
        return QObject::tr("Folder");
    case Generic:
        break;
    }
    return QFileIconProvider::type(info);
}

OmaFileIconProvider::Kind OmaFileIconProvider::kindOf(const QFileInfo &info)
{
    if (info.isDir())
        return Kind::Folder;
    return kindOfSuffix(info.suffix());
}

OmaFileIconProvider::Kind OmaFileIconProvider::kindOfSuffix(const QString &suffix)
{
    static const struct
    {
        Kind kind;
        const char *suffixes[12];
    } table[] = {
        { Document, { "ipd", "ipt", "pdf", "eps", "ps", "txt", "rtf", "html", "htm", "xml", "odt", "doc" } },
        { Image, { "png", "jpg", "jpeg", "tif", "tiff", "gif", "bmp", "svg", "webp", "psd", "ico", "xpm" } },
        { Font, { "ttf", "otf", "ttc", "pfb", "pfa", "afm", "pfm", "woff", "woff2", "dfont", "otc", nullptr } },
    };
    const QString lower = suffix.toLower();
    for (const auto &entry : table)
        for (const char *known : entry.suffixes)
            if (known && lower == QLatin1String(known))
                return entry.kind;
    return Generic;
}

QIcon OmaFileIconProvider::iconOf(Kind kind)
{
    static QIcon icons[Kind::Folder + 1];
    if (kind < Generic || kind > Kind::Folder)
        kind = Generic;
    if (icons[kind].isNull())
        icons[kind] = QIcon(new ArtworkEngine(kind));
    return icons[kind];
}

QPixmap OmaFileIconProvider::pixmapOf(Kind kind, int size)
{
    return Device::pixmap(iconOf(kind), size, size);
}
