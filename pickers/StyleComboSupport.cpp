#include "pickers/StyleComboSupport_p.h"

#include "pickers/PickerRoles.h"
#include "style/Device.h"

#include <QAbstractItemView>
#include <QComboBox>

namespace TavoLib {
namespace StyleComboSupport {

namespace {

constexpr short kNoStyle = -100;

short styleFromVariant(const QVariant &value)
{
    bool ok = false;
    const int id = value.toInt(&ok);
    return value.isValid() && ok ? short(id) : kNoStyle;
}

} // namespace

void populate(QComboBox *combo, const std::list<short> &styles, short current, double width,
    const std::function<QString(short)> &name,
    const std::function<QPixmap(short, const QSize &)> &preview)
{
    QSize iconSize(int(Device::scale(width)), 0);
    int currentIndex = 0;
    bool first = true;
    for (short id : styles) {
        if (first) {
            first = false;
            // Measures a row of this combo box; nobody gets to see the placeholder.
            const bool wasBlocked = combo->blockSignals(true);
            const int previousIndex = combo->currentIndex();
            combo->addItem(QStringLiteral("Temp"));
            iconSize.setHeight(combo->view()->sizeHintForRow(0));
            combo->setIconSize(iconSize);
            combo->removeItem(combo->count() - 1);
            combo->setCurrentIndex(previousIndex);
            combo->blockSignals(wasBlocked);
        }
        const QPixmap pixmap = preview(id, iconSize);
        if (pixmap.isNull())
            combo->addItem(name(id));
        else
            combo->addItem(QIcon(pixmap), name(id));
        const int index = combo->count() - 1;
        combo->setItemData(index, int(id), StyleIdRole);
        if (id == current)
            currentIndex = index;
    }
    combo->setCurrentIndex(currentIndex);
}

bool setCurrent(QComboBox *combo, short style)
{
    if (!combo)
        return false;
    for (int i = 0; i < combo->count(); ++i) {
        const QVariant id = combo->itemData(i, StyleIdRole);
        if (id.isValid() && id.toInt() == style) {
            combo->setCurrentIndex(i);
            return true;
        }
    }
    return false;
}

short current(QComboBox *combo)
{
    return combo ? styleFromVariant(combo->currentData(StyleIdRole)) : kNoStyle;
}

short at(int index, QComboBox *combo)
{
    if (!combo || index < 0 || index >= combo->count())
        return kNoStyle;
    return styleFromVariant(combo->itemData(index, StyleIdRole));
}

QSize devicePixels(const QSize &size)
{
    const double ratio = Device::pixelRatio();
    return QSize(qRound(size.width() * ratio), qRound(size.height() * ratio));
}

QPixmap withPixelRatio(QPixmap pixmap)
{
    if (!pixmap.isNull())
        pixmap.setDevicePixelRatio(Device::pixelRatio());
    return pixmap;
}

} // namespace StyleComboSupport
} // namespace TavoLib
