#include "dialogs/DialogUtilities.h"

#include "dialogs/ScreenList_p.h"
#include "dialogs/Ta_WidgetGeometry.h"

#include <QComboBox>
#include <QSettings>
#include <QSplitter>

namespace TavoLib {

namespace {

struct CodecNameMapEntry
{
    const char *name;
    const char *label;
};

// Kept on purpose: "ISO8859-1" stands twice; lookups by name find "Latin1", and the second
// label still maps back to the same name.
const CodecNameMapEntry kCodecs[] = {
    { "ISO8859-1", "Latin1" },
    { "Big5", "Big5 - Chinese" },
    { "Big5-HKSCS", "Big5-HKSCS - Chinese" },
    { "eucJP", "eucJP - Japanese" },
    { "eucKR", "eucKR - Korean" },
    { "GB2312", "GB2312 - Chinese" },
    { "GBK", "GBK - Chinese" },
    { "GB18030", "GB18030 - Chinese" },
    { "JIS7", "JIS7 - Japanese" },
    { "Shift-JIS", "Shift-JIS - Japanese" },
    { "TSCII", "TSCII - Tamil" },
    { "UTF-8", "utf8 - Unicode, 8-bit" },
    { "utf16", "utf16 - Unicode" },
    { "KOI8-R", "KOI8-R - Russian" },
    { "KOI8-U", "KOI8-U - Ukrainian" },
    { "ISO8859-1", "ISO8859-1 - Western" },
    { "ISO8859-2", "ISO8859-2 - Central European" },
    { "ISO8859-3", "ISO8859-3 - Central European" },
    { "ISO8859-4", "ISO8859-4 - Baltic" },
    { "ISO8859-5", "ISO8859-5 - Cyrillic" },
    { "ISO8859-6", "ISO8859-6 - Arabic" },
    { "ISO8859-7", "ISO8859-7 - Greek" },
    { "ISO8859-8", "ISO8859-8 - Hebrew, visually ordered" },
    { "ISO8859-8-i", "ISO8859-8-i - Hebrew, logically ordered" },
    { "ISO8859-9", "ISO8859-9 - Turkish" },
    { "ISO8859-10", "ISO8859-10" },
    { "ISO8859-13", "ISO8859-13" },
    { "ISO8859-14", "ISO8859-14" },
    { "ISO8859-15", "ISO8859-15 - Western" },
    { "IBM 850", "IBM 850" },
    { "IBM 866", "IBM 866" },
    { "CP874", "CP874" },
    { "CP1250", "CP1250 - Central European" },
    { "CP1251", "CP1251 - Cyrillic" },
    { "CP1252", "CP1252 - Western" },
    { "CP1253", "CP1253 - Greek" },
    { "CP1254", "CP1254 - Turkish" },
    { "CP1255", "CP1255 - Hebrew" },
    { "CP1256", "CP1256 - Arabic" },
    { "CP1257", "CP1257 - Baltic" },
    { "CP1258", "CP1258" },
    { "Apple Roman", "Apple Roman" },
    { "TIS-620", "TIS-620 - Thai" },
};

// Stored edges and sizes beyond this many pixels are taken as damage.
const int kLimit = 1 << 20;

// Applies the stored sizes of every splitter below `dialog`, by object name; whether any
// splitter took sizes.
bool restoreSplitters(QDialog &dialog, const QVariant &stored)
{
    if (stored.userType() != QMetaType::QVariantMap)
        return false;
    const QVariantMap splitters = stored.toMap();
    bool applied = false;
    for (QSplitter *splitter : dialog.findChildren<QSplitter *>()) {
        const QVariant entry = splitters.value(splitter->objectName());
        if (entry.userType() != QMetaType::QVariantList)
            continue;
        const QVariantList list = entry.toList();
        // decided: a longer list is applied (the splitter ignores the extra sizes); a shorter
        // one is refused, since the splitter would give its newer panes no room.
        if (list.size() < splitter->count())
            continue;
        QList<int> sizes;
        for (int i = 0; i < splitter->count(); ++i)
            sizes << qBound(0, list.at(i).toInt(), kLimit);
        splitter->setSizes(sizes);
        applied = true;
    }
    return applied;
}

QString groupFor(const QDialog &dialog, const QString &key)
{
    return QStringLiteral("Dialogs/")
        + (key.isEmpty() ? QString::fromLatin1(dialog.metaObject()->className()) : key);
}

} // namespace

QDialog &DialogUtilities::prepareDialog(QDialog &dialog)
{
    dialog.ensurePolished();
    return dialog;
}

void DialogUtilities::storeGeometry(const QDialog &dialog, const QString &key)
{
    QSettings settings(QStringLiteral("Tavo"), QStringLiteral("TavoApp"));
    settings.beginGroup(groupFor(dialog, key));
    settings.setValue(QStringLiteral("Geometry"), dialog.geometry());
    QVariantMap splitters;
    for (const QSplitter *splitter : dialog.findChildren<QSplitter *>()) {
        QVariantList sizes;
        for (int size : splitter->sizes())
            sizes << size;
        splitters.insert(splitter->objectName(), sizes);
    }
    settings.setValue(QStringLiteral("Splitter"), splitters);
    settings.sync();
}

bool DialogUtilities::restoreGeometry(QDialog &dialog, const QString &key)
{
    QSettings settings(QStringLiteral("Tavo"), QStringLiteral("TavoApp"));
    settings.beginGroup(groupFor(dialog, key));
    if (!settings.contains(QStringLiteral("Geometry")))
        return false;
    // A value that is not a rectangle, or one of an absurd size, counts as no rectangle.
    const QVariant stored = settings.value(QStringLiteral("Geometry"), QRect());
    QRect rect = stored.userType() == QMetaType::QRect ? stored.toRect() : QRect();
    // The edges are checked one by one: a width or height of extreme edges does not fit an int.
    for (int edge : { rect.left(), rect.top(), rect.right(), rect.bottom() })
        if (edge < -kLimit || edge > kLimit)
            rect = QRect();
    bool applied = false;
    if (rect.isValid()) {
        Ta_WidgetGeometry geometry(-1);
        const QRect available = geometry.availableGeometry();
        const QPoint centred((available.width() - rect.width()) / 2 + available.left(),
            (available.height() - rect.height()) / 2 + available.top());
        const QRect fitted
            = geometry.ValidateWindowGeometry(rect, rect.size(), centred, true, true);
        if (fitted.isValid()) {
            dialog.setGeometry(fitted);
            applied = true;
        }
    }
    // decided: true only when something of the record was applied, so that a host can place
    // the dialog itself otherwise.
    return restoreSplitters(dialog, settings.value(QStringLiteral("Splitter"), QVariantMap()))
        || applied;
}

QRect DialogUtilities::validateGeometry(const QRect &rect, const QSize &size, const QPoint &position,
                                        bool fromLeft, bool fromTop)
{
    if (rect.isValid()) {
        for (int i = 0; i < ScreenList::count(); ++i) {
            const QRect available = ScreenList::availableGeometry(i);
            if (available.contains(rect.topLeft()) || available.contains(rect.topRight()))
                return rect;
        }
    }
    return ScreenList::placed(ScreenList::availableGeometry(ScreenList::primary()), size, position, fromLeft,
                              fromTop);
}

QColor DialogUtilities::getColor(const QColor &initial, QWidget *parent, const QString &title,
                                 QColorDialog::ColorDialogOptions options)
{
    QColorDialog dialog(parent);
    if (!title.isEmpty())
        dialog.setWindowTitle(title);
    dialog.setOptions(options);
    dialog.setCurrentColor(initial);
    dialog.ensurePolished();
    dialog.exec();
    return dialog.selectedColor();
}

void DialogUtilities::initCodecs(QComboBox *comboBox)
{
    if (!comboBox)
        return;
    QStringList labels{ QObject::tr("None") };
    for (const CodecNameMapEntry &entry : kCodecs)
        labels << QString::fromLatin1(entry.label);
    comboBox->insertItems(comboBox->count(), labels);
}

QString DialogUtilities::currentCodec(QComboBox *comboBox)
{
    if (!comboBox || comboBox->currentIndex() <= 0)
        return QString();
    const QString text = comboBox->currentText();
    for (const CodecNameMapEntry &entry : kCodecs) {
        if (text == QLatin1String(entry.label))
            return QString::fromLatin1(entry.name);
    }
    return QString();
}

void DialogUtilities::setCurrentCodec(QComboBox *comboBox, const QString &codec)
{
    if (!comboBox)
        return;
    int row = 0;
    for (int i = 0; i < int(sizeof(kCodecs) / sizeof(kCodecs[0])); ++i) {
        if (codec == QLatin1String(kCodecs[i].name)) {
            row = i + 1;
            break;
        }
    }
    comboBox->setCurrentIndex(row);
}

} // namespace TavoLib
