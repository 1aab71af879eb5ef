#include "pickers/FontControllerQt.h"

#include "pickers/FontItemDelegate.h"
#include "pickers/FontItemModel.h"
#include "pickers/FontItemSelectionModel.h"
#include "pickers/FontStyleItemModel.h"
#include "pickers/FontTreeView.h"
#include "pickers/PickerRoles.h"
#include "style/Device.h"

#include <QAction>
#include <QActionGroup>
#include <QComboBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenu>
#include <QScreen>
#include <QSet>
#include <QSettings>
#include <limits>

namespace TavoLib {

namespace {

const QString kMoreData = QStringLiteral("[more]");
const char *const kHashProperty = "FontProvider hash";
const char *const kFontProperty = "current font id";

// The name under which a font is listed: its family, or for a font that is not installed
// its full name in braces.
QString displayName(const FontProviderQt &provider, short id)
{
    if (provider.isMissing(id))
        return QLatin1Char('{') + provider.fontName(id) + QLatin1Char('}');
    return provider.familyName(id);
}

// A pop-up made for a combo box or menu looks like its owner, also under a style set on
// that owner alone.
void copyStyle(QWidget *from, QWidget *to)
{
    QStyle *style = from->style();
    if (to->style() != style)
        to->setStyle(style);
    const QList<QWidget *> children = to->findChildren<QWidget *>();
    for (QWidget *child : children) {
        if (child->style() != style)
            child->setStyle(style);
    }
}

// The row listing this name.
int findName(QComboBox *combo, const QString &name)
{
    // Kept on purpose: an unknown font's empty name never matches a separator's empty text.
    if (name.isEmpty())
        return -1;
    return combo->findData(name, Qt::DisplayRole, Qt::MatchCaseSensitive);
}

bool hasIntData(const QAction *action)
{
    const QVariant data = action->data();
    return data.isValid() && data.userType() == QMetaType::Int;
}

void sizeView(FontTreeView *view)
{
    QHeaderView *header = view->header();
    header->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    view->resizeColumnToContents(0);
    if (view->model() && view->model()->columnCount() == 2) {
        int w = view->columnWidth(0);
        view->setMinimumWidth(int(w * 1.5 + 20.0));
        header->setSectionResizeMode(0, QHeaderView::Fixed);
        w = view->columnWidth(0);
        header->resizeSection(1, int(w * 0.5));
    } else {
        view->setMinimumWidth(view->columnWidth(0) + 20);
    }
}

// The parts every font list shares: delegate, no header, no root decoration, whole rows.
void finishView(FontTreeView *view)
{
    view->setItemDelegate(new FontItemDelegate(view));
    view->setHeaderHidden(true);
    view->setRootIsDecorated(false);
    sizeView(view);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
}

QIcon fontTypeIcon(int type)
{
    const char *name = nullptr;
    switch (type) {
    case FontProvider::TrueType:
        name = ":/TavoLib/FontHandler/truetypefont-icon";
        break;
    case FontProvider::OpenType:
        name = ":/TavoLib/FontHandler/opentypefont-icon";
        break;
    case FontProvider::Type1:
        name = ":/TavoLib/FontHandler/type1font-icon";
        break;
    default:
        return QIcon();
    }
    return QIcon(Device::pixmap(QString::fromLatin1(name), 12, 12));
}

int availableHeight()
{
    // Without a screen there is no height to overflow.
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry().height() : std::numeric_limits<int>::max() / 2;
}

} // namespace

FontControllerQt::FontControllerQt(TAutoPtr<const FontProviderQt> provider)
    : mProvider(provider), mSettings(loadDefaultSettings())
{
}

FontControllerQt::FontControllerQt(const FontControllerQt &other) = default;

FontControllerQt &FontControllerQt::operator=(const FontControllerQt &other) = default;

FontControllerQt::~FontControllerQt() = default;

FontControllerQt::Settings FontControllerQt::loadDefaultSettings()
{
    Settings settings;
    QSettings store(QStringLiteral("Tavo Technology"), QStringLiteral("Font Controller"));
    store.beginGroup(QStringLiteral("Preferences"));
    settings.showExamples = store.value(QStringLiteral("Show Font Examples"), false).toBool();
    store.endGroup();
    return settings;
}

void FontControllerQt::saveDefaultSettings(const Settings &settings)
{
    QSettings store(QStringLiteral("Tavo Technology"), QStringLiteral("Font Controller"));
    store.beginGroup(QStringLiteral("Preferences"));
    store.setValue(QStringLiteral("Show Font Examples"), settings.showExamples);
    store.endGroup();
}

void FontControllerQt::setShowExamples(bool show)
{
    mSettings.showExamples = show;
}

void FontControllerQt::populateFamilies(QComboBox *combo, short current, bool omitMissing) const
{
    if (!combo)
        return;
    const bool wasBlocked = combo->blockSignals(true);

    // The view is made outside the window and handed to the combo box's pop-up at once:
    // made inside, moving it there would walk the focus chain of the whole window, for
    // every font field of a panel.
    auto *view = new FontTreeView(nullptr);
    copyStyle(combo, view);
    auto *model = new FontItemModel(mProvider, view, mSettings.showExamples, omitMissing);
    view->setModel(model);
    view->setSelectionModel(new FontItemSelectionModel(model));

    combo->setModel(view->model());
    combo->setIconSize(Device::scaleSize(QSize(12, 12)));
    combo->setView(view);
    finishView(view);
    combo->blockSignals(wasBlocked);

    if (current != -1 && mProvider) {
        const int row = findName(combo, displayName(*mProvider, current));
        if (row >= 0)
            combo->setCurrentIndex(row);
    }
    combo->setMaxVisibleItems(100);
}

void FontControllerQt::populateStyles(QComboBox *combo, short font) const
{
    if (!combo || !mProvider)
        return;
    const int hash = mProvider->hash();
    const QVariant knownHash = combo->property(kHashProperty);
    const QVariant knownFont = combo->property(kFontProperty);
    if (knownHash.isValid() && knownHash.toInt() == hash && knownFont.isValid()
        && knownFont.toInt() == font)
        return;

    if (mProvider->isMissing(font)) {
        combo->clear();
    } else {
        const QString family = mProvider->familyName(font);
        if (family.isEmpty())
            return;
        auto *view = new FontTreeView(nullptr); // outside the window, as above
        copyStyle(combo, view);
        auto *model = new FontStyleItemModel(mProvider, family, view, mSettings.showExamples);
        view->setModel(model);
        view->setSelectionModel(new FontItemSelectionModel(model));
        combo->setModel(model);
        combo->setView(view);
        finishView(view);
        if (font != -1) {
            const int row = findName(combo, mProvider->styleName(font));
            if (row >= 0)
                combo->setCurrentIndex(row);
        }
        combo->setMaxVisibleItems(20);
    }
    combo->setProperty(kHashProperty, hash);
    combo->setProperty(kFontProperty, int(font));
}

void FontControllerQt::populateStyles(QComboBox *style, QComboBox *family) const
{
    if (!style || !family || !mProvider)
        return;
    const int row = family->currentIndex();
    const QVariant id = family->itemData(row, FontIdRole);
    if (id.isValid()) {
        populateStyles(style, short(id.toInt()));
        return;
    }
    const QString name = family->itemData(row, FontFamilyRole).toString();
    for (short font : mProvider->fontsOfFamily(name)) {
        if (!mProvider->isMissing(font))
            populateStyles(style, font);
    }
}

short FontControllerQt::currentFont(QComboBox *first, QComboBox *second) const
{
    for (QComboBox *combo : { first, second }) {
        if (!combo)
            continue;
        const QVariant id = combo->currentData(FontIdRole);
        if (id.isValid())
            return short(id.toInt());
    }
    return -1;
}

short FontControllerQt::currentFont(QAction *action) const
{
    return action && hasIntData(action) ? short(action->data().toInt()) : short(-1);
}

short FontControllerQt::currentFont(QMenu *menu) const
{
    if (!menu)
        return -1;
    const QList<QAction *> actions = menu->actions();
    for (QAction *action : actions) {
        if (!action->isChecked())
            continue;
        if (hasIntData(action))
            return short(action->data().toInt());
        if (QMenu *styles = action->menu()) {
            const QList<QAction *> styleActions = styles->actions();
            for (QAction *style : styleActions) {
                if (style->isChecked() && hasIntData(style))
                    return short(style->data().toInt());
            }
        }
    }
    return -1;
}

bool FontControllerQt::setCurrentFont(QComboBox *family, QComboBox *style, short font)
{
    if (font == -1)
        return true;
    if (!family || !mProvider)
        return false;
    const int row = findName(family, displayName(*mProvider, font));
    if (row < 0)
        return false;
    family->setCurrentIndex(row);
    if (style)
        populateStyles(style, font);
    return true;
}

void FontControllerQt::setCurrentFont(QMenu *menu, short font) const
{
    if (!menu)
        return;
    if (font == -1) {
        clearMenuItemsCheckedState(menu);
        return;
    }
    if (font == 0 && mProvider)
        font = mProvider->defaultFont();
    setMenuItemChecked(menu, font);
}

void FontControllerQt::clearMenuItemsCheckedState(QMenu *menu) const
{
    QList<QAction *> actions = menu->actions();
    if (!actions.isEmpty() && actions.first()->data().toString() == kMoreData) {
        if (QMenu *more = actions.first()->menu())
            clearMenuItemsCheckedState(more);
        actions.removeFirst();
    }
    for (QAction *action : qAsConst(actions)) {
        if (action->isChecked())
            action->setChecked(false);
        if (QMenu *styles = action->menu()) {
            const QList<QAction *> styleActions = styles->actions();
            for (QAction *style : styleActions) {
                if (style->isChecked())
                    style->setChecked(false);
            }
        }
    }
}

bool FontControllerQt::setMenuItemChecked(QMenu *menu, short font) const
{
    QList<QAction *> actions = menu->actions();
    if (!actions.isEmpty() && actions.first()->data().toString() == kMoreData) {
        if (QMenu *more = actions.first()->menu()) {
            if (setMenuItemChecked(more, font))
                return true;
        }
        actions.removeFirst();
    }
    for (QAction *action : qAsConst(actions)) {
        if (hasIntData(action)) {
            if (action->data().toInt() == font) {
                action->setChecked(true);
                return true;
            }
            continue;
        }
        QMenu *styles = action->menu();
        if (!styles)
            continue;
        const QList<QAction *> styleActions = styles->actions();
        for (QAction *style : styleActions) {
            if (hasIntData(style) && style->data().toInt() == font) {
                action->setChecked(true);
                style->setChecked(true);
                return true;
            }
        }
    }
    return false;
}

void FontControllerQt::populateMenu(QMenu *menu, short current) const
{
    if (!menu || !mProvider)
        return;
    auto *families = new QActionGroup(menu);
    auto *styles = new QActionGroup(menu);
    QSet<QString> seen;
    const QString currentName = current == -1 ? QString() : displayName(*mProvider, current);
    const int limit = availableHeight() - 70;

    QMenu *target = menu;
    QAction *more = nullptr;
    QAction *previous = nullptr;

    for (short id : mProvider->fontList(false)) {
        const QString name = displayName(*mProvider, id);
        if (seen.contains(name))
            continue;
        seen.insert(name);

        if (more && target->sizeHint().height() > limit) {
            target->removeAction(previous);
            auto *overflow = new QMenu(target);
            copyStyle(menu, overflow);
            more->setMenu(overflow);
            target = overflow;
        }
        if (target->actions().isEmpty()) {
            more = new QAction(QMenu::tr("More"), target);
            more->setData(kMoreData);
            target->addAction(more);
            if (previous)
                target->addAction(previous);
        }

        auto *action = new QAction(name, target);
        action->setCheckable(true);
        action->setActionGroup(families);
        action->setChecked(name == currentName);

        if (mProvider->isMissing(id)) {
            action->setData(int(id));
        } else {
            action->setIcon(fontTypeIcon(mProvider->fontType(id)));
            const std::list<short> faces = mProvider->fontsOfFamily(name);
            if (faces.size() < 2) {
                if (mProvider->isEmphasized(id)) {
                    QFont bold = action->font();
                    bold.setBold(true);
                    action->setFont(bold);
                }
                action->setData(int(id));
            } else {
                // Kept on purpose: owned by the menu it hangs off, so it goes with the menu.
                auto *submenu = new QMenu(target);
                copyStyle(menu, submenu);
                for (short face : faces) {
                    auto *styleAction = new QAction(mProvider->styleName(face), submenu);
                    styleAction->setCheckable(true);
                    styleAction->setActionGroup(styles);
                    styleAction->setData(int(face));
                    styleAction->setChecked(face == current);
                    if (mProvider->isEmphasized(face)) {
                        QFont bold = styleAction->font();
                        bold.setBold(true);
                        styleAction->setFont(bold);
                    }
                    submenu->addAction(styleAction);
                }
                action->setData(name);
                action->setMenu(submenu);
            }
        }
        target->addAction(action);
        previous = action;
    }
    if (more)
        more->setVisible(false);
}

} // namespace TavoLib
