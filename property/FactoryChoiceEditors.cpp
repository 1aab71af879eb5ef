// The choice kinds of PropertyEditorFactory: selectors (combo box, buttons, menu button),
// stylesheets and extended selectors.
#include "property/PropertyEditorFactory.h"

#include "property/EditorKit_p.h"

#include "core/ExtendedSelectorProperty.h"
#include "core/SelectorProperty.h"
#include "core/StylesheetProperty.h"
#include "menus/MyComboBox.h"
#include "style/Device.h"

#include <QActionGroup>
#include <QMenu>
#include <QToolButton>

namespace TavoLib {

using namespace EditorKit;

QComboBox *PropertyEditorFactory::newCombo(QWidget *parent, bool selectorCombo) const
{
    QComboBox *combo = selectorCombo && mWidgetsTheme == WidgetsThemeCombo ? new MyComboBox(parent)
                                                                           : new QComboBox(parent);
    combo->setFrame(mWithEditorFrame);
    combo->setFocusPolicy(Qt::StrongFocus);
    return combo;
}

QWidget *PropertyEditorFactory::makeSelectorButtons(
    TAutoPtr<SelectorProperty> selector, QWidget *parent, EditorMap &editors)
{
    const Property::Ptr property(selector);
    auto *container = new QWidget(parent);
    auto *layout = new QHBoxLayout(container);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    bool first = true;
    for (int id : *selector) {
        if (first && !selector->isFirstItemVisible()) {
            first = false;
            continue;
        }
        first = false;
        auto *button = new QToolButton(container);
        auto *action = new QAction(button);
        action->setData(QVariant(int(id)));
        QIcon icon = selector->itemIcon(id);
        if (icon.isNull())
            icon = QIcon(QStringLiteral(":/yes.png"));
        if (mWidgetsTheme == WidgetsThemeCompact)
            icon = QIcon(Device::pixmap(icon, Device::SizeType3));
        action->setIcon(icon);
        action->setCheckable(true);
        action->setToolTip(translate(selector->itemName(id)));
        button->setDefaultAction(action);
        button->setAccessibleName(QStringLiteral("%1: %2").arg(
            translate(selector->visibleName()), translate(selector->itemName(id))));
        button->setAutoRaise(true);
        // Without a visible first item a button can be unticked, which means that item.
        button->setAutoExclusive(selector->isFirstItemVisible());
        // decided: an undefined selector shows no button on, when made as after an apply.
        action->setChecked(selector->isDefined() && id == selector->value());
        if (mWidgetsTheme == WidgetsThemeCompact) {
            button->setIconSize(Device::size(Device::SizeType3));
            button->setFixedSize(18, 18);
        }
        layout->addWidget(button);
        connect(button, &QToolButton::clicked, this, &PropertyEditorFactory::toolButtonClicked);
        registerEditor(button, editors, property);
    }
    // The buttons stay together at the start of a wide field, as a tool bar would.
    layout->addStretch(1);
    focusCheckedButton(container);
    return container;
}

QWidget *PropertyEditorFactory::makeSelectorMenuButton(
    TAutoPtr<SelectorProperty> selector, QWidget *parent, EditorMap &editors)
{
    const Property::Ptr property(selector);
    auto *button = new QToolButton(parent);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setAutoRaise(true);
    auto *menu = new QMenu(button);
    auto *group = new QActionGroup(menu);
    // The blank action and its separator stand for undefined, also when the property
    // cannot be undefined; applying values shows or hides them.
    menu->addAction(QString());
    menu->addSeparator();
    int remembered = 0;
    for (int id : *selector) {
        QAction *action
            = menu->addAction(QIcon(Device::pixmap(selector->itemIcon(id), Device::SizeType0)),
                translate(selector->itemName(id)));
        action->setData(QVariant(int(id)));
        if (id == selector->value())
            remembered = menu->actions().size() - 1;
    }
    const QList<QAction *> actions = menu->actions();
    for (QAction *action : actions) {
        if (action->isSeparator())
            continue;
        action->setCheckable(true);
        group->addAction(action);
    }
    if (remembered < actions.size() && !actions.at(remembered)->isSeparator())
        actions.at(remembered)->setChecked(true);
    if (!group->checkedAction() && !actions.isEmpty())
        actions.first()->setCheckable(true);
    button->setMenu(menu);
    // decided: the button shows the undefined icon and the blank action only while the
    // property is undefined, when made as after an apply.
    showMenuButtonItem(button, selector);
    int side = 16;
    switch (selector->iconSize()) {
    case SelectorProperty::IconSizeDefault:
        side = 0;
        break;
    case SelectorProperty::IconSizeSmall:
        side = 12;
        break;
    case SelectorProperty::IconSizeLarge:
        side = 32;
        break;
    default:
        side = 16;
        break;
    }
    if (side > 0)
        button->setIconSize(Device::scaleSize(QSize(side, side)));
    connect(button, &QToolButton::triggered, this, &PropertyEditorFactory::toolButtonItemChanged);
    registerEditor(button, editors, property);
    return button;
}

QWidget *PropertyEditorFactory::makeSelectorCombo(
    TAutoPtr<SelectorProperty> selector, QWidget *parent, EditorMap &editors)
{
    const Property::Ptr property(selector);
    QComboBox *combo = newCombo(parent, true);
    if (selector->isUndefinable())
        addBlankRow(combo);
    int current = 0;
    for (int id : *selector) {
        if (id == selector->value())
            current = combo->count();
        combo->addItem(
            selector->itemIcon(id), translate(selector->itemName(id)), QVariant(int(id)));
    }
    combo->setCurrentIndex(selector->isUndefined() ? 0 : current);
    connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::selectorPropertyChanged);
    registerEditor(combo, editors, property);
    return combo;
}

QWidget *PropertyEditorFactory::makeStylesheetEditor(
    TAutoPtr<StylesheetProperty> stylesheet, QWidget *parent, EditorMap &editors)
{
    const Property::Ptr property(stylesheet);
    QComboBox *combo = newCombo(parent, true);
    if (stylesheet->isUndefinable())
        addBlankRow(combo);
    combo->addItem(tr("None"), QVariant(int(0)));
    int current = 0;
    if (mStylesheetManager) {
        for (const auto &sheet :
            mStylesheetManager->stylesheetsWithType(stylesheet->stylesheetType())) {
            if (!sheet)
                continue;
            if (sheet == stylesheet->stylesheet())
                current = combo->count();
            combo->addItem(mStylesheetManager->displayText(sheet), sheet->name());
        }
    }
    // kept on purpose: a defined property without a stylesheet shows row 0, which on an
    // undefinable combo box is the blank row, not "None".
    combo->setCurrentIndex(stylesheet->isUndefined() ? 0 : current);
    connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::stylesheetPropertyChanged);
    registerEditor(combo, editors, property);
    return combo;
}

QWidget *PropertyEditorFactory::makeExtendedSelectorEditor(
    TAutoPtr<ExtendedSelectorProperty> extended, QWidget *parent, EditorMap &editors)
{
    const Property::Ptr property(extended);
    QComboBox *combo = newCombo(parent, false);
    if (extended->isUndefinable())
        addBlankRow(combo);
    const TAutoPtr<Property> chosen(extended->current());
    int current = 0;
    for (const auto &child : *extended) {
        if (!child)
            continue;
        if (chosen && child->uniqueName() == chosen->uniqueName())
            current = combo->count();
        combo->addItem(
            QIcon(child->iconName()), translate(child->visibleName()), child->uniqueName());
    }
    combo->setCurrentIndex(extended->isUndefined() ? 0 : current);
    connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::extendedSelectorPropertyChanged);
    registerEditor(combo, editors, property);
    return combo;
}

void PropertyEditorFactory::applySelector(
    TAutoPtr<SelectorProperty> selector, const QList<QWidget *> &widgets)
{
    if (selector->mode() == SelectorProperty::ButtonsMode) {
        for (QWidget *widget : widgets) {
            auto *button = qobject_cast<QToolButton *>(widget);
            if (!button || !button->defaultAction())
                continue;
            if (mWidgetsTheme == WidgetsThemeCompact)
                button->setFixedSize(Device::scaleSize(QSize(18, 18)));
            QAction *action = button->defaultAction();
            if (selector->isDefined()) {
                if (selector->isFirstItemVisible() && !button->autoExclusive())
                    button->setAutoExclusive(true);
                const bool on = action->data().toInt() == selector->value();
                if (on != action->isChecked())
                    action->toggle();
            } else {
                // Auto-exclusive buttons refuse to be all unchecked; the flag comes back
                // with the next defined value.
                button->setAutoExclusive(false);
                if (action->isChecked())
                    action->setChecked(false);
            }
        }
        if (auto *first = firstOf<QToolButton>(widgets))
            focusCheckedButton(first->parentWidget());
        return;
    }
    if (selector->mode() == SelectorProperty::MenuButtonMode) {
        if (auto *button = qobject_cast<QToolButton *>(widgets.first()))
            showMenuButtonItem(button, selector);
        return;
    }
    auto *combo = qobject_cast<QComboBox *>(widgets.first());
    if (!combo)
        return;
    if (selector->isDefined())
        hideBlankRow(combo, isBlankData);
    else
        showBlankRow(combo, isBlankData);
    int row = -1;
    if (selector->isDefined())
        for (int i = 0; i < combo->count() && row < 0; ++i)
            if (!combo->itemData(i).isNull() && combo->itemData(i).toInt() == selector->value())
                row = i;
    combo->setCurrentIndex(row < 0 ? 0 : row);
}

void PropertyEditorFactory::applyExtendedSelector(
    TAutoPtr<ExtendedSelectorProperty> extended, const QList<QWidget *> &widgets)
{
    auto *combo = qobject_cast<QComboBox *>(widgets.first());
    if (!combo)
        return;
    int row = -1;
    if (extended->isDefined()) {
        hideBlankRow(combo, isBlankData);
        const TAutoPtr<Property> chosen(extended->current());
        for (int i = 0; chosen && i < combo->count() && row < 0; ++i)
            if (combo->itemData(i).toString() == chosen->uniqueName())
                row = i;
    } else {
        showBlankRow(combo, isBlankData);
    }
    combo->setCurrentIndex(row < 0 ? 0 : row);
}

void PropertyEditorFactory::applyStylesheet(
    TAutoPtr<StylesheetProperty> stylesheet, const QList<QWidget *> &widgets)
{
    auto *combo = qobject_cast<QComboBox *>(widgets.first());
    if (!combo)
        return;
    // decided: a property without a stylesheet shows row 0, as when made: the blank row of
    // an undefinable combo box, else "None".
    int row = -1;
    const TAutoPtr<Stylesheet const> sheet = stylesheet->stylesheet();
    if (stylesheet->isDefined() && sheet) {
        for (int i = 0; i < combo->count() && row < 0; ++i) {
            const QVariant data = combo->itemData(i);
            if (data.userType() == QMetaType::QString && data.toString() == sheet->name())
                row = i;
        }
    }
    combo->setCurrentIndex(row < 0 ? 0 : row);
}

void PropertyEditorFactory::selectorPropertyChanged(int)
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    auto *combo = qobject_cast<QComboBox *>(sender());
    TAutoPtr<SelectorProperty> property(editedProperty(sender()));
    if (!property || !combo)
        return;
    const QVariant data = combo->currentData(Qt::UserRole);
    if (data.isNull()) {
        property->setUndefined(true);
    } else {
        property->setUndefined(false);
        if (property->value() != data.toInt())
            property->setValue(data.toInt());
    }
    emit propertyChanged(property);
}

void PropertyEditorFactory::extendedSelectorPropertyChanged(int)
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    auto *combo = qobject_cast<QComboBox *>(sender());
    TAutoPtr<ExtendedSelectorProperty> property(editedProperty(sender()));
    if (!property || !combo)
        return;
    const QVariant data = combo->currentData(Qt::UserRole);
    if (data.isNull()) {
        property->setUndefined(true);
    } else {
        property->setUndefined(false);
        const TAutoPtr<Property> current(property->current());
        if (!current || current->uniqueName() != data.toString())
            property->setCurrent(data.toString());
    }
    emit propertyChanged(property);
}

void PropertyEditorFactory::stylesheetPropertyChanged(int)
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    auto *combo = qobject_cast<QComboBox *>(sender());
    TAutoPtr<StylesheetProperty> property(editedProperty(sender()));
    if (!property || !combo)
        return;
    const QVariant data = combo->currentData(Qt::UserRole);
    if (data.isNull()) {
        property->setUndefined(true);
    } else {
        property->setUndefined(false);
        if (data.userType() == QMetaType::QString && mStylesheetManager)
            property->setStylesheet(
                mStylesheetManager->stylesheet(property->stylesheetType(), data.toString()));
        else
            property->unsetStylesheet(property->stylesheetType());
    }
    emit propertyChanged(property);
}

void PropertyEditorFactory::toolButtonClicked(bool checked)
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    auto *button = qobject_cast<QToolButton *>(sender());
    TAutoPtr<SelectorProperty> property(editedProperty(sender()));
    if (!property || !button || !button->defaultAction())
        return;
    if (!checked && property->isFirstItemVisible()) {
        // One button must stay on: a button unticked while the flag was off (an undefined
        // value) is ticked again.
        button->defaultAction()->setChecked(true);
        return;
    }
    EditorMap *owner = nullptr;
    for (auto &entry : mEditors)
        if (entry.second.contains(button)) {
            owner = &entry.second;
            break;
        }
    int id = button->defaultAction()->data().toInt();
    if (owner)
        for (auto it = owner->begin(); it != owner->end(); ++it) {
            if (it.key() == button || it.value() != property)
                continue;
            if (auto *other = qobject_cast<QToolButton *>(it.key()))
                if (other->defaultAction() && other->defaultAction()->isChecked())
                    other->defaultAction()->setChecked(false);
        }
    if (!checked && property->begin() != property->end())
        id = *property->begin();
    focusCheckedButton(button->parentWidget());
    // Qt reports a click on an auto-exclusive button that is already on as checked again:
    // nothing changes then, so nothing is written or signalled.
    if (property->isDefined() && property->value() == id)
        return;
    property->setUndefined(false);
    property->setValue(id);
    emit propertyChanged(property);
}

void PropertyEditorFactory::toolButtonItemChanged(QAction *action)
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    auto *button = qobject_cast<QToolButton *>(sender());
    TAutoPtr<SelectorProperty> property(editedProperty(sender()));
    if (!property || !button || !action)
        return;
    const QVariant data = action->data();
    if (!data.isValid()) {
        property->setUndefined(true);
    } else {
        property->setValue(data.toInt());
        property->setUndefined(false);
    }
    showMenuButtonItem(button, property);
    emit propertyChanged(property);
}

void PropertyEditorFactory::showMenuButtonItem(
    QToolButton *button, TAutoPtr<SelectorProperty> selector)
{
    if (!button->menu())
        return;
    // The blank action and its separator are offered only while undefined.
    const QList<QAction *> actions = button->menu()->actions();
    for (int i = 0; i < 2 && i < actions.size(); ++i)
        actions.at(i)->setVisible(selector->isUndefined());
    QString name;
    if (selector->isDefined()) {
        int id = 0;
        for (QAction *action : actions) {
            if (!action->data().isNull() && action->data().toInt() == selector->value()) {
                action->setChecked(true);
                id = selector->value();
                name = action->text();
                break;
            }
        }
        button->setIcon(QIcon(Device::pixmap(selector->itemIcon(id), 32, 32)));
    } else {
        button->setIcon(QIcon(Device::pixmap(selector->undefinedIconName(), Device::SizeType0)));
        if (!actions.isEmpty())
            actions.first()->setChecked(true);
    }
    // The icon alone does not say which item it is.
    button->setToolTip(name);
}

void PropertyEditorFactory::focusCheckedButton(QWidget *container)
{
    // The container of the buttons passes the focus to the button that is on, else the first.
    if (!container)
        return;
    QToolButton *target = nullptr;
    for (QToolButton *button :
        container->findChildren<QToolButton *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (!target)
            target = button;
        if (button->defaultAction() && button->defaultAction()->isChecked()) {
            target = button;
            break;
        }
    }
    container->setFocusProxy(target);
}

} // namespace TavoLib
