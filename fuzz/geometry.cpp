// Feeds arbitrary stored values through the restoring of a dialog's geometry and splitters:
// the bytes make a "Geometry" and a "Splitter" value of any shape (rectangles of any size,
// numbers, texts, lists and maps nested a few levels, lists of thousands of entries), they
// are written to a settings file in a temporary home and read back by restoreGeometry on a
// dialog with two splitters. What must hold: no crash, and a geometry that is either the one
// the dialog had or a valid rectangle.
#include "dialogs/DialogUtilities.h"

#include <QApplication>
#include <QDialog>
#include <QRect>
#include <QSettings>
#include <QSplitter>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <cstdint>
#include <cstdlib>

namespace {

struct Reader
{
    const std::uint8_t *data;
    std::size_t size;
    std::size_t at = 0;
    std::uint8_t byte() { return at < size ? data[at++] : 0; }
    int number()
    {
        std::uint32_t v = 0;
        for (int i = 0; i < 4; ++i)
            v = (v << 8) | byte();
        return int(v);
    }
};

QVariant makeValue(Reader &in, int depth)
{
    switch (in.byte() % 8) {
    case 0: {
        // From its edges: any four numbers, without the overflow of left + width.
        const int left = in.number(), top = in.number();
        return QRect(QPoint(left, top), QPoint(in.number(), in.number()));
    }
    case 1:
        return in.number();
    case 2:
        return double(in.number()) / 7.0;
    case 3: {
        const std::size_t wanted = in.byte();
        const std::size_t length = std::min(in.size - std::min(in.at, in.size), wanted);
        const QString text = QString::fromLatin1(reinterpret_cast<const char *>(in.data + in.at), int(length));
        in.at += length;
        return text;
    }
    case 4: {
        QVariantList list;
        const int count = in.byte() % 4 == 0 ? 3000 : in.byte() % 6;
        for (int i = 0; i < count && in.at < in.size; ++i)
            list << (depth < 3 ? makeValue(in, depth + 1) : QVariant(in.number()));
        return list;
    }
    case 5: {
        QVariantMap map;
        const int count = in.byte() % 5;
        for (int i = 0; i < count; ++i) {
            const QString key = (in.byte() % 3 == 0) ? QString() : QStringLiteral("a");
            map.insert(key, depth < 3 ? makeValue(in, depth + 1) : QVariant(in.number()));
        }
        return map;
    }
    case 6:
        return QVariant();
    default:
        return QByteArray(reinterpret_cast<const char *>(in.data), int(std::min<std::size_t>(in.size, 16)));
    }
}

QTemporaryDir *gHome = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication app(*argc, *argv);
    gHome = new QTemporaryDir;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, gHome->path());
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Reader in{ data, size };
    {
        QSettings settings(QStringLiteral("Tavo"), QStringLiteral("TavoApp"));
        settings.clear();
        const int present = in.byte();
        if (present & 1)
            settings.setValue(QStringLiteral("Dialogs/fuzz/Geometry"), makeValue(in, 0));
        if (present & 2)
            settings.setValue(QStringLiteral("Dialogs/fuzz/Splitter"), makeValue(in, 0));
        settings.sync();
    }
    QDialog dialog;
    auto *layout = new QVBoxLayout(&dialog);
    for (const char *name : { "a", "" }) {
        auto *splitter = new QSplitter(&dialog);
        splitter->setObjectName(QString::fromLatin1(name));
        splitter->addWidget(new QWidget);
        splitter->addWidget(new QWidget);
        layout->addWidget(splitter);
    }
    dialog.resize(300, 200);
    const QRect before = dialog.geometry();
    TavoLib::DialogUtilities::restoreGeometry(dialog, QStringLiteral("fuzz"));
    if (dialog.geometry() != before && !dialog.geometry().isValid())
        std::abort();
    return 0;
}
