#include "property/PropertyEditorFactory.h"

#include "controls/Ta_UnitEdit.h"
#include "core/ActivatableGroupProperty.h"
#include "core/BoolProperty.h"
#include "core/BrushProperty.h"
#include "core/CustomColorProperty.h"
#include "core/ExtendedSelectorProperty.h"
#include "core/FontProperty.h"
#include "core/FontSizeProperty.h"
#include "core/IntegerProperty.h"
#include "core/LineHeadStyleProperty.h"
#include "core/ListProperty.h"
#include "core/PenStyleProperty.h"
#include "core/SelectorProperty.h"
#include "core/StylesheetProperty.h"
#include "core/UnitValueProperty.h"
#include "core/UnitValueSelectorProperty.h"
#include "menus/MyComboBox.h"
#include "pickers/BrushControllerQt.h"
#include "pickers/FontControllerQt.h"
#include "pickers/LineHeadStyleControllerQt.h"
#include "pickers/PenStyleControllerQt.h"
#include "property/ListPropertyWidget.h"
#include "style/Device.h"
#include "widgets/MyDoubleSpinBox.h"
#include "widgets/MyWidget.h"
#include "widgets/Ta_ColorView.h"

#include <algorithm>

#include <QActionGroup>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMetaType>
#include <QSpinBox>
#include <QStyle>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextFrame>
#include <QToolButton>
#include <QVBoxLayout>

namespace TavoLib {

namespace {

// The short index that stands for no value: the controllers select the blank row for it.
constexpr short NoIndex = -100;
// The unit code of the blank row of a measure selector.
constexpr unsigned int BlankUnit = 0x20202020;
// The role that marks the family row "any" of an undefinable font.
constexpr int FamilyMarkerRole = Qt::UserRole + 5;

void showBlankRow(QComboBox *combo, const std::function<bool(QComboBox *)> &isBlank)
{
    if (combo->count() == 0 || !isBlank(combo)) {
        combo->insertItem(0, QString(), QVariant());
        combo->insertSeparator(1);
    }
    combo->setCurrentIndex(0);
}

void hideBlankRow(QComboBox *combo, const std::function<bool(QComboBox *)> &isBlank)
{
    if (combo->count() > 0 && isBlank(combo)) {
        combo->removeItem(1);
        combo->removeItem(0);
    }
}

void addBlankRow(QComboBox *combo)
{
    combo->addItem(QString(), QVariant());
    combo->insertSeparator(combo->count());
}

QHBoxLayout *rowLayout(QWidget *container)
{
    auto *layout = new QHBoxLayout(container);
    layout->setContentsMargins(0, 0, 0, 0);
    return layout;
}

QWidget *rowContainer(QWidget *parent)
{
    auto *container = new QWidget(parent);
    rowLayout(container);
    return container;
}

void addStretch(QBoxLayout *layout)
{
    layout->addItem(new QSpacerItem(0, 5, QSizePolicy::Expanding, QSizePolicy::Minimum));
}

QCheckBox *undefinedBox(QWidget *container)
{
    auto *box = new QCheckBox(container);
    box->setFixedWidth(box->sizeHint().height());
    return box;
}

template<class T>
T *firstOf(const QList<QWidget *> &widgets)
{
    for (QWidget *widget : widgets)
        if (auto *found = qobject_cast<T *>(widget))
            return found;
    return nullptr;
}

bool allOrNothingSelected(const QLineEdit *edit)
{
    return edit->text().isEmpty() || edit->selectedText() == edit->text();
}

void configureEdit(Ta_UnitEdit *edit, const UnitValue &value, double minimum, double maximum,
    int precision)
{
    edit->setUnit(Ta_UnitEdit::UnitType(value.unit().GetUnitID()));
    edit->setMinimum(minimum);
    edit->setMaximum(maximum);
    edit->setPrecision(precision);
    edit->setValue(value);
    edit->setAllowEmpty(false);
}

// The write of the brush, pen and line-head slots: the index -100 is the blank row.
template<class Kind>
void writeIndex(Kind &property, short index, short (Kind::*get)() const, void (Kind::*set)(short))
{
    property.setUndefined(index == NoIndex);
    if (index != NoIndex && (property.*get)() != index)
        (property.*set)(index);
}

// Rebuilds the list of every live combo box of one side map: cleared, the blank row again
// for an undefinable property, then filled by `populate` with the current index.
template<class Kind, class Populate>
void repopulate(const std::map<Property::Ptr, QPointer<QWidget>> &editors, Populate populate)
{
    for (const auto &entry : editors) {
        TAutoPtr<Kind> property(entry.first);
        auto *combo = qobject_cast<QComboBox *>(entry.second.data());
        if (!combo || !property)
            continue;
        combo->clear();
        if (property->isUndefinable())
            addBlankRow(combo);
        populate(combo, *property);
    }
}

// Applies a short index to the combo box of a brush, pen or line head: the blank row
// shown when undefined, hidden and the index made current when defined.
template<class Blank, class SetCurrent>
void applyIndex(QComboBox *combo, const Property &property, Blank isBlank, SetCurrent setCurrent)
{
    if (property.isDefined()) {
        hideBlankRow(combo, isBlank);
        setCurrent();
    } else {
        showBlankRow(combo, isBlank);
    }
}

} // namespace

PropertyEditorFactory::PropertyEditorFactory(QObject *parent, bool liveStringUpdates)
    : QObject(parent)
    , mLiveStringUpdates(liveStringUpdates)
{
    static bool registered = false;
    if (!registered) {
        qRegisterMetaType<Property::Ptr>("TavoLib_Property_Ptr");
        registered = true;
    }
}

PropertyEditorFactory::~PropertyEditorFactory() = default;

void PropertyEditorFactory::setWidgetsTheme(WidgetsTheme theme)
{
    mWidgetsTheme = theme;
}

void PropertyEditorFactory::setWithEditorFrame(bool withFrame)
{
    mWithEditorFrame = withFrame;
}

void PropertyEditorFactory::setBrushProvider(TAutoPtr<BrushProviderQt const> provider)
{
    if (provider == mBrushProvider)
        return;
    mBrushProvider = provider;
    updateBrushEditors(false);
}

void PropertyEditorFactory::setFontProvider(TAutoPtr<FontProviderQt const> provider)
{
    if (provider == mFontProvider)
        return;
    mFontProvider = provider;
    updateFontEditors(false);
}

void PropertyEditorFactory::setPenStyleProvider(TAutoPtr<PenStyleProviderQt const> provider)
{
    mPenStyleProvider = provider;
}

void PropertyEditorFactory::setLineHeadStyleProvider(
    TAutoPtr<LineHeadStyleProviderQt const> provider)
{
    mLineHeadStyleProvider = provider;
}

void PropertyEditorFactory::setTranslator(TAutoPtr<Translator const> translator)
{
    mTranslator = translator;
}

void PropertyEditorFactory::setStylesheetManager(TAutoPtr<StylesheetManager const> manager)
{
    mStylesheetManager = manager;
}

QString PropertyEditorFactory::translate(const QString &text) const
{
    return mTranslator ? mTranslator->translate(text) : text;
}

void PropertyEditorFactory::registerEditor(
    QWidget *editor, EditorMap &editors, TAutoPtr<Property> property)
{
    editors[editor] = property;
    QList<QWidget *> &named = mByName[property ? property->uniqueName() : QString()];
    if (!named.contains(editor))
        named.append(editor);
    connect(editor, &QObject::destroyed, this, &PropertyEditorFactory::editorDestroyed,
        Qt::UniqueConnection);
}

TAutoPtr<Property> PropertyEditorFactory::toProperty(QWidget *editor) const
{
    for (const auto &owner : mEditors) {
        auto found = owner.second.constFind(editor);
        if (found != owner.second.constEnd())
            return found.value();
    }
    return TAutoPtr<Property>();
}

TAutoPtr<Property> PropertyEditorFactory::toProperty(QObject *sender) const
{
    // While values are applied the widgets signal as their rows change; those signals are
    // not edits and must not write into the property being applied.
    if (!writesAllowed())
        return TAutoPtr<Property>();
    return toProperty(qobject_cast<QWidget *>(sender));
}

PropertyEditorFactory::FontControls PropertyEditorFactory::toFontControls(
    TAutoPtr<Property> property) const
{
    auto found = mFontControls.find(property);
    return found == mFontControls.end() ? FontControls() : found->second;
}

QList<QWidget *> PropertyEditorFactory::propertyEditors(TAutoPtr<Property const> property)
{
    QList<QWidget *> result;
    if (!property)
        return result;
    for (const auto &owner : mEditors)
        for (auto it = owner.second.constBegin(); it != owner.second.constEnd(); ++it)
            if (it.value() == property)
                result.append(it.key());
    return result;
}

void PropertyEditorFactory::clear()
{
    mFontControls.clear();
    mEditors.clear();
    mReferenceSizeEditors.clear();
    mBrushEditors.clear();
    mPenStyleEditors.clear();
    mLineHeadStyleEditors.clear();
    mPresetCombos.clear();
    mByName.clear();
    mCurrentProperty = nullptr;
    mCurrentEditor = nullptr;
}

// ---- Making editors -----------------------------------------------------------------------

QWidget *PropertyEditorFactory::createEditor(
    TAutoPtr<Property> property, QWidget *parent, const QString &ownerIdentifier)
{
    mCurrentProperty = property;
    EditorMap &editors = mEditors[ownerIdentifier];
    QWidget *result = property ? makeEditor(property, parent, editors) : nullptr;
    mCurrentEditor = result;
    if (!result)
        return nullptr;
    if (parent && parent->style()) {
        // A widget that already draws with the parent's style is left as it is: setting the
        // same style again only repolishes it.
        QStyle *style = parent->style();
        for (QWidget *child : result->findChildren<QWidget *>())
            if (child->style() != style)
                child->setStyle(style);
        if (result->style() != style)
            result->setStyle(style);
    }
    Device::scale(result);
    return result;
}

QComboBox *PropertyEditorFactory::newCombo(QWidget *parent, bool selectorCombo) const
{
    QComboBox *combo = selectorCombo && mWidgetsTheme == WidgetsThemeCombo
        ? new MyComboBox(parent)
        : new QComboBox(parent);
    combo->setFrame(mWithEditorFrame);
    combo->setFocusPolicy(Qt::StrongFocus);
    return combo;
}

QWidget *PropertyEditorFactory::makeEditor(
    TAutoPtr<Property> property, QWidget *parent, EditorMap &editors)
{
    const bool formTheme = mWidgetsTheme == WidgetsThemeForm || mWidgetsTheme == WidgetsThemeCompact;
    const int gap = mWithEditorFrame ? int(Device::scale(4.0)) : 1;

    if (TAutoPtr<IntegerProperty> integer{ property }) {
        QWidget *container = rowContainer(parent);
        auto *layout = static_cast<QHBoxLayout *>(container->layout());
        auto *spin = new QSpinBox(container);
        spin->setFrame(mWithEditorFrame);
        container->setFocusProxy(spin);
        layout->addWidget(spin);
        QCheckBox *box = nullptr;
        if (integer->isUndefinable()) {
            box = undefinedBox(container);
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

    if (TAutoPtr<StringProperty> string{ property }) {
        if (string->readOnly()) {
            if (!formTheme)
                return nullptr;
            QWidget *container = rowContainer(parent);
            container->layout()->setSpacing(4);
            auto *icon = new QLabel(container);
            icon->setObjectName(QStringLiteral("icon"));
            const bool hasIcon = !string->iconName().isEmpty();
            icon->setPixmap(hasIcon ? Device::pixmap(string->iconName(), Device::SizeType3)
                                    : QPixmap());
            icon->setProperty("COLORIZEICON", string->allowColorizeIcon());
            icon->setVisible(string->isDefined());
            icon->setSizePolicy(
                QSizePolicy::Fixed, hasIcon ? QSizePolicy::Expanding : QSizePolicy::Fixed);
            auto *text = new QLabel(translate(string->value()), container);
            text->setObjectName(QStringLiteral("text"));
            container->layout()->addWidget(icon);
            container->layout()->addWidget(text);
            registerEditor(icon, editors, property);
            registerEditor(text, editors, property);
            return container;
        }

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
            box = undefinedBox(container);
            layout->addWidget(box);
        }
        if (!string->multiLine() && mWithEditorFrame)
            addStretch(layout);
        if (auto *text = qobject_cast<QTextEdit *>(edit)) {
            connect(text, &QTextEdit::textChanged, this, &PropertyEditorFactory::stringPropertyChanged);
        } else if (mLiveStringUpdates || string->exampleController()) {
            connect(static_cast<QLineEdit *>(edit), &QLineEdit::textChanged, this,
                &PropertyEditorFactory::stringPropertyChanged);
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
        edit->setEnabled(string->isDefined());
        registerEditor(edit, editors, property);
        return container;
    }

    if (TAutoPtr<SelectorProperty> selector{ property }) {
        if (selector->mode() == SelectorProperty::ButtonsMode) {
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
                button->setAutoRaise(true);
                // Without a visible first item a button can be unticked, which means that item.
                button->setAutoExclusive(selector->isFirstItemVisible());
                action->setChecked(id == selector->value());
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
            return container;
        }

        if (selector->mode() == SelectorProperty::MenuButtonMode) {
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
                QAction *action = menu->addAction(QIcon(Device::pixmap(selector->itemIcon(id),
                                                      Device::SizeType0)),
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
            const int shown = selector->isUndefined() ? 0 : remembered;
            button->setIcon(QIcon(Device::pixmap(
                selector->itemIcon(actions.value(shown)->data().toInt()), 32, 32)));
            int side = 16;
            switch (selector->iconSize()) {
            case SelectorProperty::IconSizeDefault: side = 0; break;
            case SelectorProperty::IconSizeSmall: side = 12; break;
            case SelectorProperty::IconSizeLarge: side = 32; break;
            default: side = 16; break;
            }
            if (side > 0)
                button->setIconSize(Device::scaleSize(QSize(side, side)));
            connect(button, &QToolButton::triggered, this, &PropertyEditorFactory::toolButtonItemChanged);
            registerEditor(button, editors, property);
            return button;
        }

        QComboBox *combo = newCombo(parent, true);
        if (selector->isUndefinable())
            addBlankRow(combo);
        int current = 0;
        for (int id : *selector) {
            if (id == selector->value())
                current = combo->count();
            combo->addItem(selector->itemIcon(id), translate(selector->itemName(id)), QVariant(int(id)));
        }
        combo->setCurrentIndex(selector->isUndefined() ? 0 : current);
        connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &PropertyEditorFactory::selectorPropertyChanged);
        registerEditor(combo, editors, property);
        return combo;
    }

    if (TAutoPtr<StylesheetProperty> stylesheet{ property }) {
        QComboBox *combo = newCombo(parent, true);
        if (stylesheet->isUndefinable())
            addBlankRow(combo);
        combo->addItem(tr("None"), QVariant(int(0)));
        int current = 0;
        if (mStylesheetManager) {
            for (const auto &sheet : mStylesheetManager->stylesheetsWithType(stylesheet->stylesheetType())) {
                if (!sheet)
                    continue;
                if (sheet == stylesheet->stylesheet())
                    current = combo->count();
                combo->addItem(mStylesheetManager->displayText(sheet), sheet->name());
            }
        }
        combo->setCurrentIndex(stylesheet->isUndefined() ? 0 : current);
        connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &PropertyEditorFactory::stylesheetPropertyChanged);
        registerEditor(combo, editors, property);
        return combo;
    }

    if (TAutoPtr<ExtendedSelectorProperty> extended{ property }) {
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
            combo->addItem(QIcon(child->iconName()), translate(child->visibleName()), child->uniqueName());
        }
        combo->setCurrentIndex(extended->isUndefined() ? 0 : current);
        connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &PropertyEditorFactory::extendedSelectorPropertyChanged);
        registerEditor(combo, editors, property);
        return combo;
    }

    if (TAutoPtr<ActivatableGroupProperty> activatable{ property }) {
        auto *box = new QCheckBox(parent);
        box->setTristate(activatable->isUndefinable());
        if (activatable->isUndefined())
            box->setCheckState(Qt::PartiallyChecked);
        else
            box->setChecked(activatable->isActive());
        connect(box, &QCheckBox::stateChanged, this, &PropertyEditorFactory::activatableGroupStateChanged);
        registerEditor(box, editors, property);
        return box;
    }

    if (TAutoPtr<ListProperty> list{ property }) {
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

    if (TAutoPtr<BoolProperty> boolean{ property }) {
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

    if (TAutoPtr<CustomColorProperty> color{ property }) {
        QWidget *container = rowContainer(parent);
        auto *layout = static_cast<QHBoxLayout *>(container->layout());
        auto *view = new Ta_ColorView(container);
        view->setFrameStyle(QFrame::StyledPanel);
        view->setMinimumHeight(20);
        view->setFixedWidth(80);
        layout->addWidget(view);
        addStretch(layout);
        QColor shown;
        shown.setRgbF(color->red(), color->green(), color->blue(), 1.0);
        view->setColor(shown);
        connect(view, &Ta_ColorView::colorChanged, this, &PropertyEditorFactory::customColorPropertyChanged);
        registerEditor(view, editors, property);
        return container;
    }

    if (TAutoPtr<BrushProperty> brush{ property }) {
        QComboBox *combo = newCombo(parent, false);
        if (brush->isUndefinable())
            addBlankRow(combo);
        if (mBrushProvider)
            BrushControllerQt(mBrushProvider)
                .populate(combo, brush->onlyColors(), brush->isUndefined() ? NoIndex : brush->brush());
        connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &PropertyEditorFactory::brushPropertyChanged);
        mBrushEditors[property] = combo;
        registerEditor(combo, editors, property);
        return combo;
    }

    if (TAutoPtr<PenStyleProperty> pen{ property }) {
        QComboBox *combo = newCombo(parent, false);
        if (pen->isUndefinable())
            addBlankRow(combo);
        if (mPenStyleProvider)
            PenStyleControllerQt(mPenStyleProvider)
                .populate(combo, pen->isUndefined() ? NoIndex : pen->penStyle());
        connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &PropertyEditorFactory::penStylePropertyChanged);
        mPenStyleEditors[property] = combo;
        registerEditor(combo, editors, property);
        return combo;
    }

    if (TAutoPtr<LineHeadStyleProperty> head{ property }) {
        QComboBox *combo = newCombo(parent, false);
        if (head->isUndefinable())
            addBlankRow(combo);
        if (mLineHeadStyleProvider)
            LineHeadStyleControllerQt(mLineHeadStyleProvider)
                .populate(head->isAtLineEnd(), combo, head->isUndefined() ? NoIndex : head->style());
        connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &PropertyEditorFactory::lineHeadStylePropertyChanged);
        mLineHeadStyleEditors[property] = combo;
        registerEditor(combo, editors, property);
        return combo;
    }

    if (TAutoPtr<FontProperty> font{ property }) {
        auto *widget = new MyWidget(parent);
        widget->setContentsMargins(0, 0, 0, 0);
        auto *layout = new QHBoxLayout(widget);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        QWidget *family = nullptr;
        QWidget *style = nullptr;
        QWidget *third = nullptr;
        createFontEditors(font, widget, family, style, third);
        layout->addWidget(family);
        layout->addItem(new QSpacerItem(gap, gap, QSizePolicy::Fixed, QSizePolicy::Minimum));
        layout->addWidget(style);
        registerEditor(family, editors, property);
        registerEditor(style, editors, property);
        mFontControls[property] = FontControls{ family, style };
        widget->setFocusProxy(family);
        registerEditor(widget, editors, property);
        return widget;
    }

    if (TAutoPtr<FontSizeProperty> size{ property }) {
        auto *container = new QWidget(parent);
        container->setContentsMargins(0, 0, 0, 0);
        auto *layout = rowLayout(container);
        layout->setSpacing(0);
        auto *edit = new Ta_UnitEdit(container);
        if (size->hasPresets()) {
            QComboBox *combo = CreateUnitValueComboBox(size, edit, container);
            mPresetCombos[combo] = edit;
            registerEditor(combo, editors, property);
            layout->addWidget(combo);
        } else {
            layout->addWidget(edit);
        }
        layout->addItem(new QSpacerItem(gap, gap, QSizePolicy::Fixed, QSizePolicy::Minimum));
        edit->setUnit(Ta_UnitEdit::UnitType(size->unit()));
        edit->setMinimum(size->minimum());
        edit->setMaximum(size->maximum());
        edit->setPrecision(size->precision());
        edit->setSpecialValue(size->specialValue(), translate(size->specialValueText()));
        edit->setValue(size->value());
        edit->setAllowEmpty(size->isUndefinable());
        if (size->isUndefined())
            edit->setText(QString());
        container->setFocusProxy(edit);
        auto *reference = new QComboBox(parent);
        reference->setFrame(mWithEditorFrame);
        if (size->isUndefined())
            reference->addItem(QString(), QVariant());
        reference->addItem(tr("Ascent Height"), QVariant(int(0)));
        reference->addItem(tr("Cap Height"), QVariant(int(1)));
        reference->setCurrentIndex(size->isUndefined()
                ? 0
                : (size->referenceSizeType() == FontSizeProperty::CapHeight ? 1 : 0));
        connect(reference, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &PropertyEditorFactory::referenceSizeTypeChanged);
        reference->setEnabled(!size->isUndefined());
        layout->addWidget(reference);
        registerEditor(edit, editors, property);
        registerEditor(reference, editors, property);
        mReferenceSizeEditors[property] = reference;
        registerEditor(container, editors, property);
        connect(edit, &Ta_UnitEdit::valueOnComplete, this,
            QOverload<const UnitValue &>::of(&PropertyEditorFactory::unitValuePropertyChanged));
        connect(edit, &Ta_UnitEdit::valueOnComplete, this, &PropertyEditorFactory::fontSizeChanged);
        return container;
    }

    if (TAutoPtr<UnitValueProperty> measure{ property }) {
        if (measure->readOnly()) {
            const CUnit unit(measure->unit());
            auto *label = new QLabel(
                UnitValue(measure->value().get(unit), unit).strWithUnit(3), parent);
            label->setObjectName(QStringLiteral("text"));
            if (mWidgetsTheme == WidgetsThemeCompact)
                label->setFixedSize(80, 18);
            registerEditor(label, editors, property);
            return label;
        }
        QWidget *container = rowContainer(parent);
        auto *layout = static_cast<QHBoxLayout *>(container->layout());
        if (!measure->hasPresets()) {
            auto *spin = new MyDoubleSpinBox(container);
            spin->setFrame(mWithEditorFrame);
            spin->setUnitValueProperty(measure);
            container->setFocusProxy(spin);
            layout->addWidget(spin);
            if (formTheme) {
                addStretch(layout);
                spin->setMinimumWidth(90);
                spin->setMaximumWidth(130);
            }
            spin->setSpecialValueText(translate(measure->specialValueText()));
            connect(spin, &MyDoubleSpinBox::valueOnComplete, this,
                QOverload<const UnitValue &>::of(&PropertyEditorFactory::unitValuePropertyChanged));
            registerEditor(spin, editors, property);
            registerEditor(spin->unitEdit(), editors, property);
            return container;
        }
        auto *edit = new Ta_UnitEdit(container);
        QComboBox *combo = CreateUnitValueComboBox(measure, edit, container);
        mPresetCombos[combo] = edit;
        registerEditor(combo, editors, property);
        layout->addWidget(combo);
        combo->setMinimumWidth(90);
        container->setFocusProxy(edit);
        if (formTheme)
            addStretch(layout);
        edit->setUnit(Ta_UnitEdit::UnitType(measure->unit()));
        edit->setMinimum(measure->minimum());
        edit->setMaximum(measure->maximum());
        edit->setPrecision(measure->precision());
        edit->setSpecialValue(measure->specialValue(), translate(measure->specialValueText()));
        edit->setUseSecondUnit(measure->useSecondUnit());
        if (measure->useSecondUnit()) {
            edit->setSecondUnit(Ta_UnitEdit::UnitType(measure->secondUnit()));
            edit->setSecondMinimum(measure->secondMinimum());
            edit->setSecondMaximum(measure->secondMaximum());
            edit->setSecondPrecision(measure->secondPrecision());
        }
        edit->setValue(measure->value());
        edit->setAllowEmpty(measure->isUndefinable());
        if (measure->isUndefined())
            edit->setText(QString());
        registerEditor(edit, editors, property);
        connect(edit, &Ta_UnitEdit::valueOnComplete, this,
            QOverload<const UnitValue &>::of(&PropertyEditorFactory::unitValuePropertyChanged));
        return container;
    }

    if (TAutoPtr<UnitValueSelectorProperty> measures{ property }) {
        if (measures->readOnly()) {
            auto *label = new QLabel(measures->valueText(), parent);
            label->setObjectName(QStringLiteral("text"));
            registerEditor(label, editors, property);
            return label;
        }
        QWidget *container = rowContainer(parent);
        auto *layout = static_cast<QHBoxLayout *>(container->layout());
        auto *spin = new MyDoubleSpinBox(container);
        spin->setFrame(mWithEditorFrame);
        auto *combo = new QComboBox(container);
        combo->setFrame(mWithEditorFrame);
        layout->addWidget(spin);
        layout->addWidget(combo);
        fillMeasureSelector(measures, spin, combo);
        container->setFocusProxy(spin);
        if (formTheme) {
            addStretch(layout);
            spin->setMinimumWidth(90);
            spin->setMaximumWidth(130);
        }
        connect(spin, &MyDoubleSpinBox::valueOnComplete, this,
            QOverload<const UnitValue &>::of(&PropertyEditorFactory::unitValueSelectorPropertyChanged));
        connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            QOverload<int>::of(&PropertyEditorFactory::unitValueSelectorPropertyChanged));
        registerEditor(spin, editors, property);
        registerEditor(spin->unitEdit(), editors, property);
        registerEditor(combo, editors, property);
        return container;
    }

    return nullptr;
}

void PropertyEditorFactory::fillMeasureSelector(
    TAutoPtr<UnitValueSelectorProperty> property, MyDoubleSpinBox *spin, QComboBox *combo)
{
    if (property->isUndefinable()) {
        // kept on purpose: the blank row carries the id 0, not a null value, so choosing it
        // selects the item of id 0.
        combo->addItem(QString(), QVariant(int(0)));
        combo->insertSeparator(1);
        spin->setUnitValue(UnitValue(0, CUnit(BlankUnit)), BlankUnit, 0, 0, 0, false, false);
        // The blank row shows a blank field, not the number it carries; the field may stay
        // empty until a real item is chosen.
        spin->unitEdit()->setAllowEmpty(true);
        spin->unitEdit()->setText(QString());
        spin->setEnabled(false);
        combo->setCurrentIndex(0);
    }
    for (int id : *property) {
        combo->addItem(translate(property->itemName(id)), QVariant(int(id)));
        if (property->isDefined() && id == property->value()) {
            const UnitValue value = property->itemValue(id);
            spin->setUnitValue(value, value.unit().GetUnitID(), property->itemMinimum(id),
                property->itemMaximum(id), property->itemPrecision(id), false, false);
            // A real item is current: the spin box edits it, also after a blank row.
            spin->setEnabled(true);
            combo->setCurrentIndex(combo->count() - 1);
        }
    }
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

QComboBox *PropertyEditorFactory::CreateUnitValueComboBox(
    TAutoPtr<UnitValueProperty> property, QLineEdit *edit, QWidget *parent)
{
    auto *combo = new QComboBox(parent);
    combo->setFrame(mWithEditorFrame);
    // Made editable by the setLineEdit below: setEditable(true) would make a line edit of its
    // own only to have it replaced, and a widget deleted while a panel loads costs a walk
    // through every event still queued for the new widgets.
    combo->setInsertPolicy(QComboBox::NoInsert);
    for (const auto &preset : property->presets()) {
        if (preset.isSeparator())
            combo->insertSeparator(combo->count());
        else
            combo->addItem(translate(preset.name()), preset.value().strWithUnit(3));
    }
    combo->setCurrentIndex(-1);
    connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::unitValuePresetChanged);
    // The order matters: the line edit after the connection, and no completer after the
    // line edit, which brings one of its own.
    combo->setLineEdit(edit);
    combo->setEditText(property->valueText());
    combo->setMaxVisibleItems(30);
    combo->setCompleter(nullptr);
    return combo;
}

void PropertyEditorFactory::createFontEditors(TAutoPtr<FontProperty> property, QWidget *parent,
    QWidget *&family, QWidget *&style, QWidget *&third)
{
    Q_UNUSED(third)
    auto *familyCombo = new QComboBox(parent);
    // The field asks for room for a usual family name, not for the longest one installed:
    // a panel does not widen with the font list, and that list (hundreds of names) is not
    // measured again for every font field of every load. The pop-up still shows whole names.
    familyCombo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    familyCombo->setMinimumContentsLength(16);
    if (mFontProvider)
        FontControllerQt(mFontProvider).populateFamilies(familyCombo, property->font(), false);
    if (property->isUndefinable()) {
        familyCombo->insertItem(0, QString(), QVariant());
        familyCombo->setItemData(0, QStringLiteral("any"), FamilyMarkerRole);
        familyCombo->insertSeparator(1);
    }
    familyCombo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    familyCombo->setFrame(mWithEditorFrame);
    auto *styleCombo = new QComboBox(parent);
    if (mFontProvider)
        FontControllerQt(mFontProvider).populateStyles(styleCombo, property->font());
    styleCombo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    styleCombo->setFrame(mWithEditorFrame);
    if (property->isUndefined()) {
        familyCombo->setCurrentIndex(0);
        styleCombo->hide();
    }
    connect(familyCombo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::fontFamilyPropertyChanged);
    connect(styleCombo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::fontStylePropertyChanged);
    family = familyCombo;
    style = styleCombo;
}

// ---- Applying values ----------------------------------------------------------------------

void PropertyEditorFactory::applyPropertyValues(TavoLib::Property::Ptr property)
{
    applyPropertyValues(property, QString());
}

void PropertyEditorFactory::applyPropertyValues(
    TavoLib::Property::Ptr property, QString ownerIdentifier)
{
    if (!property)
        return;
    EditorMap &editors = mEditors[ownerIdentifier];
    Property::Ptr old;
    QList<QWidget *> widgets;
    // The candidates in widget order, as the owner's map holds them.
    QList<QWidget *> candidates = mByName.value(property->uniqueName());
    std::sort(candidates.begin(), candidates.end());
    for (QWidget *candidate : qAsConst(candidates)) {
        auto it = editors.find(candidate);
        if (it == editors.end() || !it.value() || it.value()->uniqueName() != property->uniqueName())
            continue;
        old = it.value();
        it.value() = property;
        widgets.append(it.key());
    }
    if (widgets.isEmpty())
        return;
    if (old) {
        // kept on purpose: applying the registered object itself drops its side entries, as
        // the copy is erased under the same key.
        auto move = [&](auto &map) {
            auto found = map.find(old);
            if (found == map.end())
                return;
            auto entry = found->second;
            map[property] = entry;
            map.erase(old);
        };
        move(mFontControls);
        move(mReferenceSizeEditors);
        move(mBrushEditors);
        move(mPenStyleEditors);
        move(mLineHeadStyleEditors);
    }
    // The widgets signal as their rows and values change; those signals must not write into
    // the property being applied, so the slots stand still until the end.
    ++mApplying;
    applyValues(property, widgets);
    --mApplying;
}

void PropertyEditorFactory::applyValues(TAutoPtr<Property> property, const QList<QWidget *> &widgets)
{
    const auto blankData = [](QComboBox *combo) { return combo->itemData(0).isNull(); };

    if (TAutoPtr<FontSizeProperty> size{ property }) {
        Ta_UnitEdit *edit = firstOf<Ta_UnitEdit>(widgets);
        QComboBox *combo = nullptr;
        for (QWidget *widget : widgets)
            if (auto *candidate = qobject_cast<QComboBox *>(widget))
                if (!combo || combo->lineEdit())
                    combo = candidate;
        if (combo && combo->lineEdit())
            combo = nullptr;
        if (!edit || !combo)
            return;
        disconnect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &PropertyEditorFactory::referenceSizeTypeChanged);
        disconnect(edit, &Ta_UnitEdit::valueOnComplete, this,
            QOverload<const UnitValue &>::of(&PropertyEditorFactory::unitValuePropertyChanged));
        disconnect(edit, &Ta_UnitEdit::valueOnComplete, this, &PropertyEditorFactory::fontSizeChanged);
        // kept on purpose: the undefined state, not the undefinable flag, allows the empty field.
        edit->setAllowEmpty(size->isUndefined());
        combo->setEnabled(!size->isUndefined());
        if (size->isDefined()) {
            if (combo->count() > 0 && combo->itemText(0).isEmpty())
                combo->removeItem(0);
            combo->setCurrentIndex(size->referenceSizeType() == FontSizeProperty::CapHeight ? 1 : 0);
            edit->setUnit(Ta_UnitEdit::UnitType(size->unit()));
            edit->setValue(size->value());
        } else {
            if (combo->count() == 0 || !combo->itemText(0).isEmpty())
                combo->insertItem(0, QString(), QVariant());
            combo->setCurrentIndex(0);
            edit->setText(QString());
        }
        connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &PropertyEditorFactory::referenceSizeTypeChanged);
        connect(edit, &Ta_UnitEdit::valueOnComplete, this,
            QOverload<const UnitValue &>::of(&PropertyEditorFactory::unitValuePropertyChanged));
        connect(edit, &Ta_UnitEdit::valueOnComplete, this, &PropertyEditorFactory::fontSizeChanged);
        return;
    }

    if (TAutoPtr<BoolProperty> boolean{ property }) {
        if (auto *button = qobject_cast<QToolButton *>(widgets.first())) {
            button->setChecked(!boolean->isUndefined() && boolean->on());
        } else if (auto *box = qobject_cast<QCheckBox *>(widgets.first())) {
            box->setTristate(boolean->isUndefinable());
            if (boolean->isUndefined())
                box->setCheckState(Qt::PartiallyChecked);
            else
                box->setChecked(boolean->on());
        }
        return;
    }

    if (TAutoPtr<StringProperty> string{ property }) {
        QLabel *icon = nullptr;
        QLabel *text = nullptr;
        for (QWidget *widget : widgets) {
            if (widget->objectName() == QLatin1String("icon"))
                icon = qobject_cast<QLabel *>(widget);
            else if (widget->objectName() == QLatin1String("text"))
                text = qobject_cast<QLabel *>(widget);
        }
        if (icon && text) {
            text->setText(string->isDefined() ? translate(string->value()) : QString());
            icon->setProperty("COLORIZEICON", string->allowColorizeIcon());
            const bool shown = string->isDefined() && !string->iconName().isEmpty();
            icon->setPixmap(shown ? Device::pixmap(string->iconName(), Device::SizeType3) : QPixmap());
            icon->setVisible(shown);
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
        return;
    }

    if (TAutoPtr<UnitValueProperty> measure{ property }) {
        if (measure->readOnly()) {
            if (auto *label = qobject_cast<QLabel *>(widgets.first())) {
                const CUnit unit(measure->unit());
                label->setText(UnitValue(measure->value().get(unit), unit).strWithUnit(3));
            }
            return;
        }
        for (QWidget *widget : widgets) {
            if (auto *spin = qobject_cast<MyDoubleSpinBox *>(widget)) {
                spin->setUnitValueProperty(measure);
                return;
            }
            if (auto *edit = qobject_cast<Ta_UnitEdit *>(widget)) {
                if (auto *spin = qobject_cast<MyDoubleSpinBox *>(edit->parentWidget())) {
                    spin->setUnitValueProperty(measure);
                    return;
                }
                const bool selected = allOrNothingSelected(edit);
                edit->setAllowEmpty(measure->isUndefinable());
                if (measure->isDefined()) {
                    edit->setUnit(Ta_UnitEdit::UnitType(measure->unit()));
                    edit->setValue(measure->value());
                } else {
                    edit->setText(QString());
                }
                if (selected)
                    edit->selectAll();
                return;
            }
        }
        return;
    }

    if (TAutoPtr<UnitValueSelectorProperty> measures{ property }) {
        if (measures->readOnly()) {
            if (auto *label = qobject_cast<QLabel *>(widgets.first()))
                label->setText(measures->valueText());
            return;
        }
        auto *spin = firstOf<MyDoubleSpinBox>(widgets);
        auto *combo = firstOf<QComboBox>(widgets);
        if (!spin || !combo)
            return;
        disconnect(spin, &MyDoubleSpinBox::valueOnComplete, this,
            QOverload<const UnitValue &>::of(&PropertyEditorFactory::unitValueSelectorPropertyChanged));
        disconnect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            QOverload<int>::of(&PropertyEditorFactory::unitValueSelectorPropertyChanged));
        combo->clear();
        fillMeasureSelector(measures, spin, combo);
        connect(spin, &MyDoubleSpinBox::valueOnComplete, this,
            QOverload<const UnitValue &>::of(&PropertyEditorFactory::unitValueSelectorPropertyChanged));
        connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            QOverload<int>::of(&PropertyEditorFactory::unitValueSelectorPropertyChanged));
        return;
    }

    if (TAutoPtr<SelectorProperty> selector{ property }) {
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
            return;
        }
        if (selector->mode() == SelectorProperty::MenuButtonMode) {
            auto *button = qobject_cast<QToolButton *>(widgets.first());
            if (!button || !button->menu())
                return;
            const QList<QAction *> actions = button->menu()->actions();
            for (int i = 0; i < 2 && i < actions.size(); ++i)
                actions.at(i)->setVisible(selector->isUndefined());
            if (selector->isDefined()) {
                int id = 0;
                for (QAction *action : actions) {
                    if (!action->data().isNull() && action->data().toInt() == selector->value()) {
                        action->setChecked(true);
                        id = selector->value();
                        break;
                    }
                }
                button->setIcon(QIcon(Device::pixmap(selector->itemIcon(id), 32, 32)));
            } else {
                button->setIcon(QIcon(Device::pixmap(selector->undefinedIconName(), Device::SizeType0)));
                if (!actions.isEmpty())
                    actions.first()->setChecked(true);
            }
            return;
        }
        auto *combo = qobject_cast<QComboBox *>(widgets.first());
        if (!combo)
            return;
        if (selector->isDefined())
            hideBlankRow(combo, blankData);
        else
            showBlankRow(combo, blankData);
        int row = -1;
        if (selector->isDefined())
            for (int i = 0; i < combo->count() && row < 0; ++i)
                if (!combo->itemData(i).isNull() && combo->itemData(i).toInt() == selector->value())
                    row = i;
        combo->setCurrentIndex(row < 0 ? 0 : row);
        return;
    }

    if (TAutoPtr<ExtendedSelectorProperty> extended{ property }) {
        auto *combo = qobject_cast<QComboBox *>(widgets.first());
        if (!combo)
            return;
        int row = -1;
        if (extended->isDefined()) {
            hideBlankRow(combo, blankData);
            const TAutoPtr<Property> chosen(extended->current());
            for (int i = 0; chosen && i < combo->count() && row < 0; ++i)
                if (combo->itemData(i).toString() == chosen->uniqueName())
                    row = i;
        } else {
            showBlankRow(combo, blankData);
        }
        combo->setCurrentIndex(row < 0 ? 0 : row);
        return;
    }

    if (TAutoPtr<BrushProperty> brush{ property }) {
        auto *combo = qobject_cast<QComboBox *>(widgets.first());
        if (!combo || !mBrushProvider)
            return;
        const BrushControllerQt controller(mBrushProvider);
        const auto blank = [&](QComboBox *c) { return controller.brushAt(0, c) == NoIndex; };
        if (brush->isDefined()) {
            // Only for brushes are the rows removed with the combo box's signals blocked.
            const bool blocked = combo->blockSignals(true);
            hideBlankRow(combo, blank);
            combo->blockSignals(blocked);
            controller.setCurrentBrush(combo, brush->brush());
        } else {
            showBlankRow(combo, blank);
        }
        return;
    }

    if (TAutoPtr<PenStyleProperty> pen{ property }) {
        auto *combo = qobject_cast<QComboBox *>(widgets.first());
        if (!combo || !mPenStyleProvider)
            return;
        const PenStyleControllerQt controller(mPenStyleProvider);
        applyIndex(
            combo, *pen, [&](QComboBox *c) { return controller.penStyleAt(0, c) == NoIndex; },
            [&] { controller.setCurrentPenStyle(combo, pen->penStyle()); });
        return;
    }

    if (TAutoPtr<LineHeadStyleProperty> head{ property }) {
        auto *combo = qobject_cast<QComboBox *>(widgets.first());
        if (!combo || !mLineHeadStyleProvider)
            return;
        const LineHeadStyleControllerQt controller(mLineHeadStyleProvider);
        applyIndex(
            combo, *head, [&](QComboBox *c) { return controller.styleAt(0, c) == NoIndex; },
            [&] { controller.setCurrentStyle(combo, head->style()); });
        return;
    }

    if (TAutoPtr<FontProperty> font{ property }) {
        const FontControls controls = toFontControls(toProperty(widgets.first()));
        auto *family = qobject_cast<QComboBox *>(controls.family.data());
        auto *style = qobject_cast<QComboBox *>(controls.style.data());
        if (!family || !style)
            return;
        disconnect(style, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &PropertyEditorFactory::fontStylePropertyChanged);
        disconnect(family, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &PropertyEditorFactory::fontFamilyPropertyChanged);
        const auto blankText = [](QComboBox *c) { return c->itemText(0).isEmpty(); };
        if (font->isDefined()) {
            hideBlankRow(family, blankText);
            if (mFontProvider)
                FontControllerQt(mFontProvider).setCurrentFont(family, style, font->font());
            style->show();
        } else {
            showBlankRow(family, blankText);
            family->setItemData(0, QStringLiteral("any"), FamilyMarkerRole);
            style->hide();
            style->clear();
            style->setProperty("current font id", QVariant());
        }
        connect(style, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &PropertyEditorFactory::fontStylePropertyChanged);
        connect(family, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &PropertyEditorFactory::fontFamilyPropertyChanged);
        return;
    }

    // The kinds below follow their applied property too, so that an editor never goes on
    // showing the value of an object that is no longer registered.
    if (TAutoPtr<IntegerProperty> integer{ property }) {
        for (QWidget *widget : widgets) {
            auto *spin = qobject_cast<QSpinBox *>(widget);
            if (!spin)
                continue;
            spin->setRange(integer->minimum(), integer->maximum());
            spin->setValue(integer->value());
            spin->setEnabled(integer->isDefined());
            if (auto *box = spin->parentWidget()->findChild<QCheckBox *>())
                box->setChecked(integer->isDefined());
        }
        return;
    }

    if (TAutoPtr<StylesheetProperty> stylesheet{ property }) {
        auto *combo = qobject_cast<QComboBox *>(widgets.first());
        if (!combo)
            return;
        int row = -1;
        if (stylesheet->isDefined()) {
            const TAutoPtr<Stylesheet const> sheet = stylesheet->stylesheet();
            for (int i = 0; i < combo->count() && row < 0; ++i) {
                const QVariant data = combo->itemData(i);
                if (sheet ? data.type() == QVariant::String && data.toString() == sheet->name()
                          : data.type() == QVariant::Int)
                    row = i;
            }
        }
        combo->setCurrentIndex(row < 0 ? 0 : row);
        return;
    }

    if (TAutoPtr<ActivatableGroupProperty> activatable{ property }) {
        if (auto *box = qobject_cast<QCheckBox *>(widgets.first())) {
            box->setTristate(activatable->isUndefinable());
            if (activatable->isUndefined())
                box->setCheckState(Qt::PartiallyChecked);
            else
                box->setChecked(activatable->isActive());
        }
        return;
    }

    if (TAutoPtr<ListProperty> list{ property }) {
        if (auto *spin = qobject_cast<QSpinBox *>(widgets.first())) {
            spin->setRange(list->minimum(), list->maximum());
            spin->setValue(list->size());
        } else if (auto *widget = qobject_cast<ListPropertyWidget *>(widgets.first())) {
            widget->setValues(list);
        }
        return;
    }

    if (TAutoPtr<CustomColorProperty> color{ property }) {
        if (auto *view = qobject_cast<Ta_ColorView *>(widgets.first())) {
            QColor shown;
            shown.setRgbF(color->red(), color->green(), color->blue(), 1.0);
            view->setColor(shown);
        }
    }
}

void PropertyEditorFactory::updateEditors(bool force)
{
    updateFontEditors(force);
    updateBrushEditors(force);
    updatePenStyleEditors(force);
    updateLineHeadStyleEditors(force);
}

void PropertyEditorFactory::updateFontEditors(bool force)
{
    if (!mFontProvider || (!force && mFontProvider->hash() == mFontProviderStamp))
        return;
    const FontControllerQt controller(mFontProvider);
    for (const auto &entry : mFontControls) {
        auto *family = qobject_cast<QComboBox *>(entry.second.family.data());
        auto *style = qobject_cast<QComboBox *>(entry.second.style.data());
        if (!family || !style)
            continue;
        bool blocked = family->blockSignals(true);
        family->clear();
        controller.populateFamilies(family, -1, false);
        family->blockSignals(blocked);
        blocked = style->blockSignals(true);
        style->clear();
        style->blockSignals(blocked);
    }
    mFontProviderStamp = mFontProvider->hash();
}

void PropertyEditorFactory::updateBrushEditors(bool force)
{
    if (!mBrushProvider || (!force && mBrushProvider->hash() == mBrushProviderStamp))
        return;
    const BrushControllerQt controller(mBrushProvider);
    ++mApplying;
    repopulate<BrushProperty>(mBrushEditors, [&](QComboBox *combo, const BrushProperty &p) {
        controller.populate(combo, p.onlyColors(), p.isUndefined() ? NoIndex : p.brush());
    });
    --mApplying;
    mBrushProviderStamp = mBrushProvider->hash();
}

void PropertyEditorFactory::updatePenStyleEditors(bool)
{
    if (!mPenStyleProvider)
        return;
    const PenStyleControllerQt controller(mPenStyleProvider);
    ++mApplying;
    repopulate<PenStyleProperty>(mPenStyleEditors, [&](QComboBox *combo, const PenStyleProperty &p) {
        controller.populate(combo, p.isUndefined() ? NoIndex : p.penStyle());
    });
    --mApplying;
}

void PropertyEditorFactory::updateLineHeadStyleEditors(bool)
{
    if (!mLineHeadStyleProvider)
        return;
    const LineHeadStyleControllerQt controller(mLineHeadStyleProvider);
    ++mApplying;
    repopulate<LineHeadStyleProperty>(
        mLineHeadStyleEditors, [&](QComboBox *combo, const LineHeadStyleProperty &p) {
            controller.populate(p.isAtLineEnd(), combo, p.isUndefined() ? NoIndex : p.style());
        });
    --mApplying;
}

// ---- Reacting to edits ---------------------------------------------------------------------

void PropertyEditorFactory::integerPropertyChanged(int value)
{
    auto *spin = qobject_cast<QSpinBox *>(sender());
    TAutoPtr<IntegerProperty> property(toProperty(sender()));
    if (!property || !spin)
        return;
    if (property->value() != value)
        property->setValue(value);
    property->setUndefined(!spin->isEnabled());
    emit propertyChanged(property);
}

void PropertyEditorFactory::doublePropertyChanged(double)
{
    auto *spin = qobject_cast<MyDoubleSpinBox *>(sender());
    TAutoPtr<UnitValueProperty> property(toProperty(sender()));
    if (!property || !spin)
        return;
    const bool empty = spin->unitEdit()->text().isEmpty();
    property->setUndefined(empty);
    if (!empty) {
        const UnitValue value = spin->unitEdit()->value(nullptr);
        if (value == property->value())
            return;
        property->setValue(value);
    }
    emit propertyChanged(property);
}

void PropertyEditorFactory::stringPropertyChanged()
{
    TAutoPtr<StringProperty> property(toProperty(sender()));
    if (!property || mWarning)
        return;
    auto *box = qobject_cast<QCheckBox *>(sender());
    QList<QWidget *> editors;
    QWidget *edit = qobject_cast<QWidget *>(sender());
    if (box) {
        editors = propertyEditors(property);
        edit = nullptr;
        for (QWidget *widget : editors)
            if (qobject_cast<QLineEdit *>(widget) || qobject_cast<QTextEdit *>(widget)) {
                edit = widget;
                break;
            }
        property->setUndefined(!box->isChecked());
    }
    auto *line = qobject_cast<QLineEdit *>(edit);
    auto *textEdit = qobject_cast<QTextEdit *>(edit);
    if (!line && !textEdit)
        return;
    const QString text = line ? line->text() : textEdit->toPlainText();
    if (edit->isEnabled() && text != property->value()) {
        if (text.length() >= property->minimumLength() && text.length() <= property->maximumLength())
            property->setValue(text);
        else {
            mWarning = true;
            QMessageBox::warning(edit->parentWidget(), tr("Invalid entry"),
                tr("That is the wrong value!"), QMessageBox::Ok);
            mWarning = false;
        }
    }
    if (!box)
        property->setUndefined(!edit->isEnabled());
    emit propertyChanged(property);
    if (line && property->exampleController()) {
        const QString example = property->exampleController()->example(property);
        if (editors.isEmpty())
            editors = propertyEditors(property);
        if (auto *label = firstOf<QLabel>(editors))
            label->setText(example);
    }
}

void PropertyEditorFactory::selectorPropertyChanged(int)
{
    auto *combo = qobject_cast<QComboBox *>(sender());
    TAutoPtr<SelectorProperty> property(toProperty(sender()));
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
    auto *combo = qobject_cast<QComboBox *>(sender());
    TAutoPtr<ExtendedSelectorProperty> property(toProperty(sender()));
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
    auto *combo = qobject_cast<QComboBox *>(sender());
    TAutoPtr<StylesheetProperty> property(toProperty(sender()));
    if (!property || !combo)
        return;
    const QVariant data = combo->currentData(Qt::UserRole);
    if (data.isNull()) {
        property->setUndefined(true);
    } else {
        property->setUndefined(false);
        if (data.type() == QVariant::String && mStylesheetManager)
            property->setStylesheet(
                mStylesheetManager->stylesheet(property->stylesheetType(), data.toString()));
        else
            property->unsetStylesheet(property->stylesheetType());
    }
    emit propertyChanged(property);
}

void PropertyEditorFactory::boolPropertyChanged()
{
    TAutoPtr<BoolProperty> property(toProperty(sender()));
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
    auto *box = qobject_cast<QCheckBox *>(sender());
    TAutoPtr<ActivatableGroupProperty> property(toProperty(sender()));
    if (!property || !box)
        return;
    property->setUndefined(box->checkState() == Qt::PartiallyChecked);
    property->setActive(box->isChecked());
    emit propertyChanged(property);
}

void PropertyEditorFactory::customColorPropertyChanged()
{
    auto *view = qobject_cast<Ta_ColorView *>(sender());
    TAutoPtr<CustomColorProperty> property(toProperty(sender()));
    if (!property || !view)
        return;
    const QColor color = view->color();
    property->setRgb(color.redF(), color.greenF(), color.blueF());
    emit propertyChanged(property);
}

void PropertyEditorFactory::brushPropertyChanged(int)
{
    auto *combo = qobject_cast<QComboBox *>(sender());
    TAutoPtr<BrushProperty> property(toProperty(sender()));
    if (!property || !combo || !mBrushProvider)
        return;
    writeIndex(*property, BrushControllerQt(mBrushProvider).currentBrush(combo),
        &BrushProperty::brush, &BrushProperty::setBrush);
    emit propertyChanged(property);
}

void PropertyEditorFactory::penStylePropertyChanged(int)
{
    auto *combo = qobject_cast<QComboBox *>(sender());
    TAutoPtr<PenStyleProperty> property(toProperty(sender()));
    if (!property || !combo || !mPenStyleProvider)
        return;
    writeIndex(*property, PenStyleControllerQt(mPenStyleProvider).currentPenStyle(combo),
        &PenStyleProperty::penStyle, &PenStyleProperty::setPenStyle);
    emit propertyChanged(property);
}

void PropertyEditorFactory::lineHeadStylePropertyChanged(int)
{
    auto *combo = qobject_cast<QComboBox *>(sender());
    TAutoPtr<LineHeadStyleProperty> property(toProperty(sender()));
    if (!property || !combo || !mLineHeadStyleProvider)
        return;
    writeIndex(*property, LineHeadStyleControllerQt(mLineHeadStyleProvider).currentStyle(combo),
        &LineHeadStyleProperty::style, &LineHeadStyleProperty::setStyle);
    emit propertyChanged(property);
}

void PropertyEditorFactory::referenceSizeTypeChanged()
{
    auto *combo = qobject_cast<QComboBox *>(sender());
    TAutoPtr<FontSizeProperty> property(toProperty(sender()));
    if (!property || !combo)
        return;
    const QVariant data = combo->currentData(Qt::UserRole);
    if (!data.isValid())
        return;
    property->setReferenceSizeType(FontSizeProperty::ReferenceSizeType(data.toInt() == 1 ? 1 : 0));
    emit propertyChanged(property);
}

void PropertyEditorFactory::listSizeChanged(int newSize)
{
    TAutoPtr<ListProperty> property(toProperty(sender()));
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
    TAutoPtr<ListProperty> property(toProperty(sender()));
    if (property)
        emit propertyChanged(property);
}

void PropertyEditorFactory::unitValuePropertyChanged(const UnitValue &)
{
    auto *edit = qobject_cast<Ta_UnitEdit *>(sender());
    if (!edit)
        if (auto *spin = qobject_cast<MyDoubleSpinBox *>(sender()))
            edit = spin->unitEdit();
    if (edit && writesAllowed())
        unitValuePropertyChanged(edit);
}

void PropertyEditorFactory::unitValuePropertyChanged(Ta_UnitEdit *edit)
{
    TAutoPtr<UnitValueProperty> property(toProperty(static_cast<QWidget *>(edit)));
    if (!property)
        return;
    const bool empty = edit->text().isEmpty();
    if (empty) {
        if (property->isUndefined())
            return;
        property->setUndefined(true);
        emit propertyChanged(property);
        return;
    }
    const UnitValue value = edit->value(nullptr);
    if (property->isDefined() && value == property->value())
        return;
    property->setUndefined(false);
    if (property->value() != value)
        property->setValue(value);
    emit propertyChanged(property);
}

void PropertyEditorFactory::unitValuePresetChanged(int itemIndex)
{
    auto *combo = qobject_cast<QComboBox *>(sender());
    auto found = mPresetCombos.find(combo);
    if (found == mPresetCombos.end() || !writesAllowed())
        return;
    combo->setEditText(combo->itemData(itemIndex).toString());
    unitValuePropertyChanged(found->second);
}

void PropertyEditorFactory::fontSizeChanged(const UnitValue &)
{
    auto *edit = qobject_cast<Ta_UnitEdit *>(sender());
    const TAutoPtr<Property> property(toProperty(sender()));
    if (!edit || !property)
        return;
    auto *combo = qobject_cast<QComboBox *>(mReferenceSizeEditors[property].data());
    if (!combo)
        return;
    // An emptied field reads as not ok: the reference size then has nothing to refer to.
    const bool empty = edit->text().isEmpty();
    bool ok = false;
    edit->value(&ok);
    ok = ok && !empty;
    combo->setEnabled(ok);
    // The blank row comes and goes for display only: the moving current row is no choice
    // of the user and must not write a reference size.
    const bool blocked = combo->blockSignals(true);
    const bool blank = !combo->itemData(0, Qt::UserRole).isValid();
    if (ok && blank) {
        combo->removeItem(0);
        if (TAutoPtr<FontSizeProperty> size{ property })
            combo->setCurrentIndex(size->referenceSizeType() == FontSizeProperty::CapHeight ? 1 : 0);
    } else if (!ok && !blank) {
        combo->insertItem(0, QString(), QVariant());
        combo->setCurrentIndex(0);
    }
    combo->blockSignals(blocked);
}

void PropertyEditorFactory::unitValueSelectorPropertyChanged(const UnitValue &)
{
    auto *spin = qobject_cast<MyDoubleSpinBox *>(sender());
    TAutoPtr<UnitValueSelectorProperty> property(toProperty(sender()));
    if (!property || !spin)
        return;
    Ta_UnitEdit *edit = spin->unitEdit();
    const bool empty = edit->text().isEmpty();
    if (empty) {
        if (property->isUndefined())
            return;
        property->setUndefined(true);
        emit propertyChanged(property);
        return;
    }
    const UnitValue value = edit->value(nullptr);
    if (property->isDefined() && value == property->itemValue(property->value()))
        return;
    property->setUndefined(false);
    if (property->itemValue(property->value()) != value)
        property->setItemValue(property->value(), value);
    emit propertyChanged(property);
}

void PropertyEditorFactory::unitValueSelectorPropertyChanged(int)
{
    auto *combo = qobject_cast<QComboBox *>(sender());
    TAutoPtr<UnitValueSelectorProperty> property(toProperty(sender()));
    if (!property || !combo)
        return;
    const int previous = property->value();
    const bool wasUndefined = property->isUndefined();
    int id = previous;
    MyDoubleSpinBox *spin = firstOf<MyDoubleSpinBox>(propertyEditors(property));
    if (spin)
        disconnect(spin, &MyDoubleSpinBox::valueOnComplete, this,
            QOverload<const UnitValue &>::of(&PropertyEditorFactory::unitValueSelectorPropertyChanged));
    const QVariant data = combo->currentData(Qt::UserRole);
    if (spin) {
        Ta_UnitEdit *edit = spin->unitEdit();
        const bool selected = allOrNothingSelected(edit);
        if (!data.isValid()) {
            property->setUndefined(true);
            configureEdit(edit, UnitValue(0, CUnit(BlankUnit)), 0, 0, 0);
            spin->setEnabled(false);
        } else {
            id = data.toInt();
            property->setUndefined(false);
            configureEdit(edit, property->itemValue(id), property->itemMinimum(id),
                property->itemMaximum(id), property->itemPrecision(id));
            spin->setEnabled(true);
        }
        if (selected)
            edit->selectAll();
        connect(spin, &MyDoubleSpinBox::valueOnComplete, this,
            QOverload<const UnitValue &>::of(&PropertyEditorFactory::unitValueSelectorPropertyChanged));
    } else if (data.isValid()) {
        id = data.toInt();
        property->setUndefined(false);
    } else {
        property->setUndefined(true);
    }
    // Also a change of the undefined state alone is an edit the listeners must hear.
    if (previous != id || wasUndefined != property->isUndefined()) {
        if (previous != id)
            property->setValue(id);
        emit propertyChanged(property);
    }
}

void PropertyEditorFactory::fontFamilyPropertyChanged()
{
    const FontControls controls = toFontControls(toProperty(sender()));
    auto *family = qobject_cast<QComboBox *>(controls.family.data());
    auto *style = qobject_cast<QComboBox *>(controls.style.data());
    if (!family || !style)
        return;
    disconnect(style, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::fontStylePropertyChanged);
    disconnect(family, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::fontFamilyPropertyChanged);
    const QString remembered = style->currentText();
    style->clear();
    const bool any = !family->currentData(FamilyMarkerRole).isNull();
    style->setVisible(!any);
    if (!any && mFontProvider) {
        const FontControllerQt controller(mFontProvider);
        controller.populateStyles(style, family);
        const int found = style->findData(remembered, Qt::DisplayRole, Qt::MatchCaseSensitive);
        if (found >= 0) {
            style->setCurrentIndex(found);
        } else if (style->count() > 0) {
            int chosen = 0;
            for (int row = 0; row < style->count(); ++row) {
                style->setCurrentIndex(row);
                const short font = controller.currentFont(family, style);
                if (font != -1 && !mFontProvider->isMissing(font)) {
                    chosen = row;
                    break;
                }
            }
            style->setCurrentIndex(chosen);
        }
    }
    connect(style, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::fontStylePropertyChanged);
    connect(family, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PropertyEditorFactory::fontFamilyPropertyChanged);
    fontPropertyChanged();
}

void PropertyEditorFactory::fontStylePropertyChanged()
{
    fontPropertyChanged();
}

void PropertyEditorFactory::fontPropertyChanged()
{
    TAutoPtr<FontProperty> property(toProperty(sender()));
    if (!property)
        return;
    const FontControls controls = toFontControls(property);
    auto *family = qobject_cast<QComboBox *>(controls.family.data());
    auto *style = qobject_cast<QComboBox *>(controls.style.data());
    if (!family || !style)
        return;
    property->setUndefined(!family->currentData(FamilyMarkerRole).isNull());
    if (property->isDefined() && mFontProvider) {
        const short font = FontControllerQt(mFontProvider).currentFont(family, style);
        if (font != property->font() && font != -1)
            property->setFont(font);
    }
    emit propertyChanged(property);
}

void PropertyEditorFactory::fontPropertyByMenuChanged(QAction *action)
{
    // A font menu made by FontControllerQt::populateMenu that a host connected: the chosen
    // action's font goes into the property registered for the menu's widget.
    if (!action || !mFontProvider)
        return;
    QWidget *host = nullptr;
    for (QWidget *widget : action->associatedWidgets())
        if (toProperty(widget)) {
            host = widget;
            break;
        }
    TAutoPtr<FontProperty> property(host && writesAllowed() ? toProperty(host) : TAutoPtr<Property>());
    if (!property)
        return;
    const short font = FontControllerQt(mFontProvider).currentFont(action);
    if (font == -1)
        return;
    property->setUndefined(false);
    if (property->font() != font)
        property->setFont(font);
    emit propertyChanged(property);
}

void PropertyEditorFactory::toolButtonClicked(bool checked)
{
    auto *button = qobject_cast<QToolButton *>(sender());
    TAutoPtr<SelectorProperty> property(toProperty(sender()));
    if (!property || !button || !button->defaultAction())
        return;
    if (!checked && property->isFirstItemVisible())
        return;
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
    auto *button = qobject_cast<QToolButton *>(sender());
    TAutoPtr<SelectorProperty> property(toProperty(sender()));
    if (!property || !button || !action)
        return;
    const QVariant data = action->data();
    if (!data.isValid()) {
        property->setUndefined(true);
        button->setIcon(QIcon(Device::pixmap(property->undefinedIconName(), Device::SizeType0)));
    } else {
        const int id = data.toInt();
        button->setIcon(QIcon(Device::pixmap(property->itemIcon(id), 32, 32)));
        property->setValue(id);
        property->setUndefined(false);
    }
    emit propertyChanged(property);
}

void PropertyEditorFactory::insertPredefineAction(QAction *action)
{
    if (!action)
        return;
    for (QWidget *widget : action->associatedWidgets())
        if (auto *line = qobject_cast<QLineEdit *>(widget)) {
            line->insert(action->data().toString());
            return;
        }
}

void PropertyEditorFactory::editorDestroyed(QObject *obj)
{
    // Only the address is compared: the widget part of obj is already gone, so no cast
    // that looks at the object may be used.
    QWidget *widget = reinterpret_cast<QWidget *>(obj);
    for (auto &owner : mEditors) {
        auto found = owner.second.find(widget);
        if (found != owner.second.end()) {
            if (found.value()) {
                auto named = mByName.find(found.value()->uniqueName());
                if (named != mByName.end() && named->removeAll(widget) > 0 && named->isEmpty())
                    mByName.erase(named);
            }
            owner.second.erase(found);
            return;
        }
    }
}

} // namespace TavoLib
