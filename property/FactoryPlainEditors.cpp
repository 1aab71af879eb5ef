// The plain kinds of PropertyEditorFactory: integers, texts, booleans, switchable groups,
// custom colours and lists; how each is made, shown again and written back.
#include "core/QtCompat_p.h"
#include "property/PropertyEditorFactory.h"

#include "property/EditorKit_p.h"

#include "core/ActivatableGroupProperty.h"
#include "core/BoolProperty.h"
#include "core/CustomColorProperty.h"
#include "core/IntegerProperty.h"
#include "core/ListProperty.h"
#include "property/ListPropertyWidget.h"
#include "style/Device.h"
#include "widgets/Ta_ColorView.h"

#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QSpinBox>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextFrame>
#include <QToolButton>
#include <QVBoxLayout>

namespace TavoLib {

using namespace EditorKit;

QWidget *PropertyEditorFactory::makeIntegerEditor(
    TAutoPtr<IntegerProperty> integer, QWidget *parent, EditorMap &editors)
{
    const Property::Ptr property(integer);
    const bool formTheme = isFormTheme();
    QWidget *container = rowContainer(parent);
    auto *layout = static_cast<QHBoxLayout *>(container->layout());
    auto *spin = new QSpinBox(container);
    spin->setFrame(mWithEditorFrame);
    container->setFocusProxy(spin);
    layout->addWidget(spin);
    QCheckBox *box = nullptr;
    if (integer->isUndefinable()) {
        box = undefinedBox(container, translate(integer->visibleName()));
        layout->addWidget(box);
    }
    if (formTheme) {
        addStretch(layout);
        spin->setMaximumWidth(80);
    }
    spin->setMinimum(integer->minimum());
    spin->setMaximum(integer->maximum());
    spin->setValue(integer->value());
    connect(spin, QOverload<int>::of(&QSpinBox::valueChanged), this,
        &PropertyEditorFactory::integerPropertyChanged);
    if (box) {
        // kept on purpose: the box only enables the spin box; the undefined state reaches
        // the model with the next value change.
        connect(box, &QCheckBox::toggled, spin, &QWidget::setEnabled);
        box->setChecked(integer->isDefined());
        spin->setEnabled(integer->isDefined());
    }
    registerEditor(spin, editors, property);
    return container;
}

QWidget *PropertyEditorFactory::makeStringEditor(
    TAutoPtr<StringProperty> string, QWidget *parent, EditorMap &editors)
{
    const Property::Ptr property(string);
    if (string->readOnly())
        return makeReadOnlyStringEditor(string, parent, editors);

    QWidget *container = rowContainer(parent);
    auto *layout = static_cast<QHBoxLayout *>(container->layout());
    QWidget *edit = nullptr;
    if (!string->multiLine()) {
        auto *line = new QLineEdit(container);
        line->setFrame(mWithEditorFrame);
        line->setMaxLength(string->maximumLength());
        line->setText(string->value());
        line->setPlaceholderText(string->placeholderText());
        if (!string->inputMask().isEmpty())
            line->setInputMask(string->inputMask());
        if (string->minimumControlWidth() > 0)
            line->setMinimumWidth(string->minimumControlWidth());
        edit = line;
        auto *inner = new QHBoxLayout;
        inner->setContentsMargins(0, 0, 0, 0);
        inner->addWidget(line);
        if (!string->predefines().isEmpty()) {
            auto *button = new QToolButton(container);
            registerEditor(button, editors, property);
            button->setPopupMode(QToolButton::InstantPopup);
            button->setAutoRaise(true);
            button->setMenu(createPredefinesMenu(string->predefines(), line));
            if (string->predefinesIcon().isNull())
                button->setArrowType(Qt::LeftArrow); // kept on purpose: a left arrow
            else
                button->setIcon(string->predefinesIcon());
            button->setToolTip(tr("Predefined values"));
            button->setAccessibleName(
                tr("%1: predefined values").arg(translate(string->visibleName())));
            connect(button, &QToolButton::triggered, this,
                &PropertyEditorFactory::insertPredefineAction);
            inner->addWidget(button);
        }
        if (string->exampleController()) {
            auto *column = new QVBoxLayout;
            column->setContentsMargins(0, 0, 0, 0);
            column->addLayout(inner);
            auto *example = new QLabel(string->exampleController()->example(string), container);
            registerEditor(example, editors, property);
            column->addWidget(example);
            layout->addLayout(column);
        } else {
            layout->addLayout(inner);
        }
    } else {
        auto *text = new QTextEdit(container);
        // A field of a form: Tab goes on to the next field instead of typing a tab.
        text->setTabChangesFocus(true);
        text->setPlainText(string->value());
        text->setPlaceholderText(string->placeholderText());
        if (!mWithEditorFrame) {
            text->setFrameShape(QFrame::NoFrame);
            QTextFrameFormat format = text->document()->rootFrame()->frameFormat();
            format.setLeftMargin(3.0);
            format.setTopMargin(2.0);
            text->document()->rootFrame()->setFrameFormat(format);
        }
        edit = text;
        layout->addWidget(text);
    }
    container->setFocusProxy(edit);
    QCheckBox *box = nullptr;
    if (string->isUndefinable()) {
        box = undefinedBox(container, translate(string->visibleName()));
        layout->addWidget(box);
    }
    if (!string->multiLine() && mWithEditorFrame)
        addStretch(layout);
    // decided: a text's length is checked when it is committed (Return, focus out, a
    // predefine), not at each keystroke of a field that follows the typing; the commit of
    // such a field only has to speak up for a text that was not taken.
    if (auto *text = qobject_cast<QTextEdit *>(edit)) {
        connect(text, &QTextEdit::textChanged, this, &PropertyEditorFactory::stringPropertyChanged);
        text->installEventFilter(this);
    } else if (mLiveStringUpdates || string->exampleController()) {
        auto *line = static_cast<QLineEdit *>(edit);
        connect(line, &QLineEdit::textChanged, this, &PropertyEditorFactory::stringPropertyChanged);
        connect(line, &QLineEdit::editingFinished, this, [this, line] {
            TAutoPtr<StringProperty> pending(editedProperty(line));
            if (pending && !mWarning && line->text() != pending->value())
                commitString(pending, line, true, true);
        });
    } else {
        connect(static_cast<QLineEdit *>(edit), &QLineEdit::editingFinished, this,
            &PropertyEditorFactory::stringPropertyChanged);
    }
    if (box) {
        connect(box, &QCheckBox::toggled, edit, &QWidget::setEnabled);
        connect(box, &QCheckBox::toggled, this, &PropertyEditorFactory::stringPropertyChanged);
        // The box is not registered yet, so this one call finds no property and writes nothing.
        box->setChecked(string->isDefined());
        registerEditor(box, editors, property);
    }
    // kept on purpose: an undefined text is disabled also when it is not undefinable, and
    // then has no box to enable it (the library's own pages make such values undefinable).
    edit->setEnabled(string->isDefined());
    registerEditor(edit, editors, property);
    return container;
}

QWidget *PropertyEditorFactory::makeReadOnlyStringEditor(
    TAutoPtr<StringProperty> string, QWidget *parent, EditorMap &editors)
{
    const Property::Ptr property(string);
    const bool formTheme = isFormTheme();
    if (!formTheme)
        return nullptr;
    QWidget *container = rowContainer(parent);
    container->layout()->setSpacing(4);
    auto *icon = new QLabel(container);
    icon->setObjectName(QStringLiteral("icon"));
    const bool hasIcon = !string->iconName().isEmpty();
    icon->setSizePolicy(QSizePolicy::Fixed, hasIcon ? QSizePolicy::Expanding : QSizePolicy::Fixed);
    auto *text = new QLabel(container);
    text->setObjectName(QStringLiteral("text"));
    showReadOnlyString(icon, text, *string);
    container->layout()->addWidget(icon);
    container->layout()->addWidget(text);
    registerEditor(icon, editors, property);
    registerEditor(text, editors, property);
    return container;
}

QMenu *PropertyEditorFactory::createPredefinesMenu(
    const QList<StringProperty::PredefineItem> &items, QWidget *parent)
{
    auto *menu = new QMenu(parent);
    for (const auto &item : items) {
        if (item.hasSubItems()) {
            QAction *action = menu->addAction(translate(item.text));
            action->setMenu(createPredefinesMenu(item.subItems, parent));
        } else if (item.isSection()) {
            menu->addSection(item.text);
        } else if (item.isSeparator()) {
            menu->addSeparator();
        } else {
            QAction *action = menu->addAction(translate(item.text));
            action->setData(QString(item.value));
            // Lets insertPredefineAction find the line edit from the action.
            parent->addAction(action);
        }
    }
    return menu;
}

QWidget *PropertyEditorFactory::makeActivatableGroupEditor(
    TAutoPtr<ActivatableGroupProperty> activatable, QWidget *parent, EditorMap &editors)
{
    const Property::Ptr property(activatable);
    auto *box = new QCheckBox(parent);
    box->setTristate(activatable->isUndefinable());
    if (activatable->isUndefined())
        box->setCheckState(Qt::PartiallyChecked);
    else
        box->setChecked(activatable->isActive());
    connect(
        box, &QCheckBox::stateChanged, this, &PropertyEditorFactory::activatableGroupStateChanged);
    registerEditor(box, editors, property);
    return box;
}

QWidget *PropertyEditorFactory::makeListEditor(
    TAutoPtr<ListProperty> list, QWidget *parent, EditorMap &editors)
{
    const Property::Ptr property(list);
    if (mWidgetsTheme == WidgetsThemeTree) {
        auto *spin = new QSpinBox(parent);
        spin->setMinimum(list->minimum());
        spin->setMaximum(list->maximum());
        spin->setValue(list->size());
        connect(spin, QOverload<int>::of(&QSpinBox::valueChanged), this,
            &PropertyEditorFactory::listSizeChanged);
        registerEditor(spin, editors, property);
        return spin;
    }
    auto *widget = new ListPropertyWidget(parent);
    widget->setStylesheetManager(mStylesheetManager);
    widget->setBrushProvider(mBrushProvider);
    widget->setPenStyleProvider(mPenStyleProvider);
    widget->setLineHeadStyleProvider(mLineHeadStyleProvider);
    widget->setFontProvider(mFontProvider);
    widget->setTranslator(mTranslator);
    widget->setValues(list);
    connect(widget, &ListPropertyWidget::propertiesChanged, this,
        &PropertyEditorFactory::listWidgetPropertiesChanged);
    registerEditor(widget, editors, property);
    return widget;
}

QWidget *PropertyEditorFactory::makeBoolEditor(
    TAutoPtr<BoolProperty> boolean, QWidget *parent, EditorMap &editors)
{
    const Property::Ptr property(boolean);
    if (mWidgetsTheme == WidgetsThemeCompact) {
        auto *button = new QToolButton(parent);
        button->setFocusPolicy(Qt::StrongFocus);
        button->setAutoRaise(true);
        button->setCheckable(true);
        button->setIcon(QIcon(Device::pixmap(boolean->icon(), Device::SizeType3)));
        button->setIconSize(Device::size(Device::SizeType3));
        button->setFixedSize(18, 18);
        button->setToolTip(translate(boolean->visibleName()));
        button->setChecked(boolean->isDefined() && boolean->on());
        connect(button, &QToolButton::toggled, this, &PropertyEditorFactory::boolPropertyChanged);
        registerEditor(button, editors, property);
        return button;
    }
    auto *box = new QCheckBox(parent);
    if (mWidgetsTheme == WidgetsThemeTree)
        box->setProperty("FLAT_CHECKBOX", true);
    box->setFocusPolicy(Qt::StrongFocus);
    box->setTristate(boolean->isUndefinable());
    if (boolean->isUndefined())
        box->setCheckState(Qt::PartiallyChecked);
    else
        box->setChecked(boolean->on());
    connect(box, &QCheckBox::stateChanged, this, &PropertyEditorFactory::boolPropertyChanged);
    registerEditor(box, editors, property);
    return box;
}

QWidget *PropertyEditorFactory::makeCustomColorEditor(
    TAutoPtr<CustomColorProperty> color, QWidget *parent, EditorMap &editors)
{
    const Property::Ptr property(color);
    QWidget *container = rowContainer(parent);
    auto *layout = static_cast<QHBoxLayout *>(container->layout());
    auto *view = new Ta_ColorView(container);
    view->setFrameStyle(QFrame::StyledPanel);
    view->setMinimumHeight(20);
    view->setFixedWidth(80);
    layout->addWidget(view);
    addStretch(layout);
    view->setColor(colorOf(*color));
    // kept on purpose: the view shows no undefined state of its own.
    container->setFocusProxy(view);
    connect(view, &Ta_ColorView::colorChanged, this,
        &PropertyEditorFactory::customColorPropertyChanged);
    registerEditor(view, editors, property);
    return container;
}

void PropertyEditorFactory::applyInteger(
    TAutoPtr<IntegerProperty> integer, const QList<QWidget *> &widgets)
{
    for (QWidget *widget : widgets) {
        auto *spin = qobject_cast<QSpinBox *>(widget);
        if (!spin)
            continue;
        spin->setRange(integer->minimum(), integer->maximum());
        spin->setValue(integer->value());
        // As at creation, only the box enables the spin box (its toggled does): without a
        // box the field stays usable whatever was applied.
        if (auto *box = spin->parentWidget()->findChild<QCheckBox *>()) {
            box->setChecked(integer->isDefined());
            spin->setEnabled(integer->isDefined());
        }
    }
}

void PropertyEditorFactory::applyString(
    TAutoPtr<StringProperty> string, const QList<QWidget *> &widgets)
{
    const Property::Ptr property(string);
    QLabel *icon = nullptr;
    QLabel *text = nullptr;
    for (QWidget *widget : widgets) {
        if (widget->objectName() == QLatin1String("icon"))
            icon = qobject_cast<QLabel *>(widget);
        else if (widget->objectName() == QLatin1String("text"))
            text = qobject_cast<QLabel *>(widget);
    }
    if (icon && text) {
        showReadOnlyString(icon, text, *string);
        return;
    }
    if (string->readOnly())
        return;
    if (auto *line = firstOf<QLineEdit>(widgets)) {
        line->setMaxLength(string->maximumLength());
        if (line->text() != string->value())
            line->setText(string->value());
        line->setPlaceholderText(string->placeholderText());
        if (!string->inputMask().isEmpty())
            line->setInputMask(string->inputMask());
        if (string->minimumControlWidth() > 0)
            line->setMinimumWidth(string->minimumControlWidth());
    } else if (auto *text = firstOf<QTextEdit>(widgets)) {
        if (text->toPlainText() != string->value())
            text->setPlainText(string->value());
        text->setPlaceholderText(string->placeholderText());
    }
    // The undefined box and the edit's enabled state follow the applied property, so
    // that the editor shows what was applied.
    QWidget *edit = firstOf<QLineEdit>(widgets);
    if (!edit)
        edit = firstOf<QTextEdit>(widgets);
    if (auto *box = firstOf<QCheckBox>(widgets))
        box->setChecked(string->isDefined());
    if (edit)
        edit->setEnabled(string->isDefined());
    // The preview under the field follows the applied text, as it follows typing.
    if (string->exampleController())
        refreshExample(string);
}

void PropertyEditorFactory::applyBool(
    TAutoPtr<BoolProperty> boolean, const QList<QWidget *> &widgets)
{
    if (auto *button = qobject_cast<QToolButton *>(widgets.first())) {
        button->setChecked(!boolean->isUndefined() && boolean->on());
    } else if (auto *box = qobject_cast<QCheckBox *>(widgets.first())) {
        box->setTristate(boolean->isUndefinable());
        if (boolean->isUndefined())
            box->setCheckState(Qt::PartiallyChecked);
        else
            box->setChecked(boolean->on());
    }
}

void PropertyEditorFactory::applyActivatableGroup(
    TAutoPtr<ActivatableGroupProperty> activatable, const QList<QWidget *> &widgets)
{
    if (auto *box = qobject_cast<QCheckBox *>(widgets.first())) {
        box->setTristate(activatable->isUndefinable());
        if (activatable->isUndefined())
            box->setCheckState(Qt::PartiallyChecked);
        else
            box->setChecked(activatable->isActive());
    }
}

void PropertyEditorFactory::applyList(TAutoPtr<ListProperty> list, const QList<QWidget *> &widgets)
{
    if (auto *spin = qobject_cast<QSpinBox *>(widgets.first())) {
        spin->setRange(list->minimum(), list->maximum());
        spin->setValue(list->size());
    } else if (auto *widget = qobject_cast<ListPropertyWidget *>(widgets.first())) {
        widget->setValues(list);
    }
}

void PropertyEditorFactory::applyCustomColor(
    TAutoPtr<CustomColorProperty> color, const QList<QWidget *> &widgets)
{
    if (auto *view = qobject_cast<Ta_ColorView *>(widgets.first()))
        view->setColor(colorOf(*color));
}

void PropertyEditorFactory::integerPropertyChanged(int value)
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    auto *spin = qobject_cast<QSpinBox *>(sender());
    TAutoPtr<IntegerProperty> property(editedProperty(sender()));
    if (!property || !spin)
        return;
    if (property->value() != value)
        property->setValue(value);
    property->setUndefined(!spin->isEnabled());
    emit propertyChanged(property);
}

void PropertyEditorFactory::stringPropertyChanged()
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    TAutoPtr<StringProperty> property(editedProperty(sender()));
    if (!property || mWarning)
        return;
    auto *box = qobject_cast<QCheckBox *>(sender());
    if (box)
        property->setUndefined(!box->isChecked());
    QWidget *edit = stringEditOf(property, sender());
    if (!edit)
        return;
    // A line edit connected by editingFinished commits here; one that follows the typing, a
    // text edit and the box do not (their commit is Return or focus out).
    const bool commit = !box && qobject_cast<QLineEdit *>(edit)
        && !(mLiveStringUpdates || property->exampleController());
    commitString(property, edit, commit, !box);
}

QWidget *PropertyEditorFactory::stringEditOf(
    TAutoPtr<StringProperty> property, QObject *sender) const
{
    if (qobject_cast<QLineEdit *>(sender) || qobject_cast<QTextEdit *>(sender))
        return static_cast<QWidget *>(sender);
    for (QWidget *widget : propertyEditors(property))
        if (qobject_cast<QLineEdit *>(widget) || qobject_cast<QTextEdit *>(widget))
            return widget;
    return nullptr;
}

void PropertyEditorFactory::commitString(
    TAutoPtr<StringProperty> property, QWidget *edit, bool commit, bool followEnabled)
{
    // The message runs an event loop of its own, in which a host may reload: the edit is
    // looked at again only while it still exists.
    QPointer<QWidget> guard(edit);
    auto *line = qobject_cast<QLineEdit *>(edit);
    const QString text = line ? line->text() : static_cast<QTextEdit *>(edit)->toPlainText();
    if (edit->isEnabled() && text != property->value()) {
        if (text.length() >= property->minimumLength()
            && text.length() <= property->maximumLength()) {
            property->setValue(text);
        } else if (commit) {
            // The text stays in the field for correction; the property keeps its value.
            mWarning = true;
            QPointer<QMessageBox> message
                = new QMessageBox(QMessageBox::Warning, tr("Invalid entry"),
                    tr("That is the wrong value!"), QMessageBox::Ok, edit->parentWidget());
            message->exec();
            delete message.data();
            mWarning = false;
            if (!guard)
                return;
        }
    }
    if (followEnabled)
        property->setUndefined(!edit->isEnabled());
    const bool example = line && property->exampleController();
    emit propertyChanged(property);
    // Listeners may have removed the editors: the preview is looked up anew.
    if (example)
        refreshExample(property);
}

void PropertyEditorFactory::refreshExample(TAutoPtr<StringProperty> property)
{
    if (!property->exampleController())
        return;
    if (auto *label = firstOf<QLabel>(propertyEditors(property)))
        label->setText(property->exampleController()->example(property));
}

void PropertyEditorFactory::showReadOnlyString(
    QLabel *icon, QLabel *text, const StringProperty &string)
{
    // decided: an undefined read-only text shows empty, when made as after an apply.
    text->setText(string.isDefined() ? translate(string.value()) : QString());
    icon->setProperty("COLORIZEICON", string.allowColorizeIcon());
    const bool shown = string.isDefined() && !string.iconName().isEmpty();
    icon->setPixmap(shown ? Device::pixmap(string.iconName(), Device::SizeType3) : QPixmap());
    icon->setVisible(shown);
}

void PropertyEditorFactory::boolPropertyChanged()
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    TAutoPtr<BoolProperty> property(editedProperty(sender()));
    if (!property)
        return;
    if (auto *button = qobject_cast<QToolButton *>(sender())) {
        property->setUndefined(false);
        if (property->on() != button->isChecked())
            property->setOn(button->isChecked());
    } else if (auto *box = qobject_cast<QCheckBox *>(sender())) {
        if (box->checkState() == Qt::PartiallyChecked) {
            property->setUndefined(true);
        } else {
            property->setUndefined(false);
            if (property->on() != box->isChecked())
                property->setOn(box->isChecked());
        }
    } else {
        return;
    }
    emit propertyChanged(property);
}

void PropertyEditorFactory::activatableGroupStateChanged()
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    auto *box = qobject_cast<QCheckBox *>(sender());
    TAutoPtr<ActivatableGroupProperty> property(editedProperty(sender()));
    if (!property || !box)
        return;
    property->setUndefined(box->checkState() == Qt::PartiallyChecked);
    property->setActive(box->isChecked());
    emit propertyChanged(property);
}

void PropertyEditorFactory::customColorPropertyChanged()
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    auto *view = qobject_cast<Ta_ColorView *>(sender());
    TAutoPtr<CustomColorProperty> property(editedProperty(sender()));
    if (!property || !view)
        return;
    const QColor color = view->color();
    // decided: a colour chosen for an undefined property defines it, as every other kind
    // does; else the choice would never be stored.
    property->setUndefined(false);
    property->setRgb(color.redF(), color.greenF(), color.blueF());
    emit propertyChanged(property);
}

void PropertyEditorFactory::listSizeChanged(int newSize)
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    TAutoPtr<ListProperty> property(editedProperty(sender()));
    if (!property)
        return;
    // A list that refuses an element (no master, or at its maximum) stays as it is.
    while (property->size() < newSize)
        if (!property->insertProperty(property->size()))
            break;
    while (property->size() > newSize && property->size() > 0)
        if (!property->removeProperty(property->size() - 1))
            break;
    emit propertyChanged(property);
}

void PropertyEditorFactory::listWidgetPropertiesChanged()
{
    if (!writesAllowed()) // no edit while values are applied, and no sender lookup then
        return;
    TAutoPtr<ListProperty> property(editedProperty(sender()));
    if (property)
        emit propertyChanged(property);
}

void PropertyEditorFactory::insertPredefineAction(QAction *action)
{
    if (!action)
        return;
    for (QWidget *widget : QtCompat::associatedWidgets(action))
        if (auto *line = qobject_cast<QLineEdit *>(widget)) {
            line->insert(action->data().toString());
            // decided: a predefine is committed at once, whatever the field's connection:
            // the menu's button takes no focus, so no focus-out would commit it.
            TAutoPtr<StringProperty> property(editedProperty(line));
            const bool live = property && (mLiveStringUpdates || property->exampleController());
            if (property && (!live || line->text() != property->value()))
                commitString(property, line, true, true);
            return;
        }
}

} // namespace TavoLib
