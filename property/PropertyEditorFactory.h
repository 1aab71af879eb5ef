#pragma once

// Turns one Property into one working editor widget, pushes new values into editors that
// already exist, and turns each edit into a write to the property followed by one
// propertyChanged signal. The factory does not own its editors (their Qt parent does); it
// remembers which widgets edit which property, grouped by a free owner identifier so that
// one factory can serve several panels or edited objects at once.
#include "core/BrushProviderQt.h"
#include "core/FontProviderQt.h"
#include "core/LineHeadStyleProviderQt.h"
#include "core/PenStyleProviderQt.h"
#include "core/Property.h"
#include "core/StringProperty.h"
#include "core/StylesheetManager.h"
#include "core/Translator.h"
#include "core/units/UnitValue.h"
#include "style/TavoLibGuiExport.h"

#include <QHash>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <map>

class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QMenu;
class QToolButton;
class MyDoubleSpinBox;
class Ta_UnitEdit;

namespace TavoLib {

class ActivatableGroupProperty;
class BoolProperty;
class BrushProperty;
class CustomColorProperty;
class ExtendedSelectorProperty;
class FontProperty;
class FontSizeProperty;
class IntegerProperty;
class LineHeadStyleProperty;
class ListProperty;
class PenStyleProperty;
class SelectorProperty;
class StylesheetProperty;
class UnitValueProperty;
class UnitValueSelectorProperty;

class TAVOLIBGUI_EXPORT PropertyEditorFactory : public QObject
{
    Q_OBJECT
public:
    // The look of a whole family of editors.
    enum WidgetsTheme {
        WidgetsThemeTree = 0, // flat check boxes, a list as a size spin box, no read-only text
        WidgetsThemeForm = 1, // plain form controls (the default)
        WidgetsThemeCompact = 2, // booleans and selector buttons as small tool buttons
        WidgetsThemeCombo = 3 // selector combo boxes with the library's popup, no read-only text
    };
    Q_ENUM(WidgetsTheme)

    // The family and style combo boxes of one font property.
    struct FontControls
    {
        QPointer<QWidget> family;
        QPointer<QWidget> style;
    };

    explicit PropertyEditorFactory(QObject *parent = nullptr, bool liveStringUpdates = false);
    ~PropertyEditorFactory() override;

    // The editor to place in a form, or null for a kind that has none (a plain group, a bare
    // property, null). Building an editor never reports a change. Every focusable part is
    // named for assistive technology after the property's visible name, and the wheel turns
    // a combo box or spin box only while it has the focus (otherwise the form scrolls).
    QWidget *createEditor(
        TAutoPtr<Property> property, QWidget *parent, const QString &ownerIdentifier);

    // Both apply to editors made afterwards.
    void setWidgetsTheme(WidgetsTheme theme);
    WidgetsTheme widgetsTheme() const { return mWidgetsTheme; }
    void setWithEditorFrame(bool withFrame);

    // A different brush or font provider refreshes the editors of that kind without force,
    // that is only when the new provider's change stamp differs from the last one seen: two
    // providers that both keep the default stamp 0 refresh nothing. A font refresh leaves the
    // font fields without a selection until the next applyPropertyValues. The others only
    // store.
    void setBrushProvider(TAutoPtr<BrushProviderQt const> provider);
    void setFontProvider(TAutoPtr<FontProviderQt const> provider);
    void setPenStyleProvider(TAutoPtr<PenStyleProviderQt const> provider);
    void setLineHeadStyleProvider(TAutoPtr<LineHeadStyleProviderQt const> provider);
    void setTranslator(TAutoPtr<Translator const> translator);
    void setStylesheetManager(TAutoPtr<StylesheetManager const> manager);
    TAutoPtr<BrushProviderQt const> brushProvider() const { return mBrushProvider; }

    // Every widget registered for exactly this object, under all owners: by owner in key
    // order, then by widget address.
    QList<QWidget *> propertyEditors(TAutoPtr<Property const> property) const;

    // Rebuilds the lists of the font, brush, pen and line-head combo boxes after a
    // provider's content changed; without force only when the provider's stamp moved.
    void updateEditors(bool force);
    void updateFontEditors(bool force);
    void updateBrushEditors(bool force);
    void updatePenStyleEditors(bool force);
    void updateLineHeadStyleEditors(bool force);

    // Forgets every editor without touching the widgets: for when they are going or gone.
    // The side maps of fonts, font sizes, brushes, pens, line heads and preset combo boxes
    // are not pruned when an editor dies, so a long-lived factory should be cleared when its
    // editors go (a panel's reload), or it keeps the old properties alive.
    void clear();

    // Reacting to a text or value edit that arrives outside a signal.
    void unitValuePropertyChanged(Ta_UnitEdit *edit);

signals:
    void propertyChanged(TavoLib::Property::Ptr property);

public slots:
    void integerPropertyChanged(int value);
    void doublePropertyChanged(double value);
    void stringPropertyChanged();
    void selectorPropertyChanged(int itemIndex);
    void stylesheetPropertyChanged(int itemIndex);
    void unitValuePresetChanged(int itemIndex);
    void extendedSelectorPropertyChanged(int itemIndex);
    void unitValuePropertyChanged(const UnitValue &value);
    void unitValueSelectorPropertyChanged(const UnitValue &value);
    void unitValueSelectorPropertyChanged(int);
    void fontSizeChanged(const UnitValue &value);
    void boolPropertyChanged();
    void customColorPropertyChanged();
    void brushPropertyChanged(int itemIndex);
    void penStylePropertyChanged(int itemIndex);
    void lineHeadStylePropertyChanged(int itemIndex);
    void referenceSizeTypeChanged();
    void fontPropertyByMenuChanged(QAction *action);
    void fontFamilyPropertyChanged();
    void fontStylePropertyChanged();
    void listSizeChanged(int newSize);
    void listWidgetPropertiesChanged();

    // Hands a new property of the same uniqueName to the editors that exist under the
    // owner, and brings the widgets up to it. Re-applying the very object that is registered
    // (after changing it in place) drops the side entries of its font, font-size, brush,
    // pen and line-head editors, which then no longer refresh or write: apply a new object
    // (a clone) instead.
    void applyPropertyValues(TavoLib::Property::Ptr property, QString ownerIdentifier);
    void applyPropertyValues(TavoLib::Property::Ptr property);

private slots:
    void toolButtonClicked(bool checked);
    void toolButtonItemChanged(QAction *action);
    void activatableGroupStateChanged();
    void editorDestroyed(QObject *obj);
    void insertPredefineAction(QAction *action);

private:
    using EditorMap = QMap<QWidget *, TAutoPtr<Property>>;

    QString translate(const QString &text) const;
    void registerEditor(QWidget *editor, EditorMap &editors, TAutoPtr<Property> property);
    QMenu *createPredefinesMenu(const QList<StringProperty::PredefineItem> &items, QWidget *parent);
    QComboBox *CreateUnitValueComboBox(
        TAutoPtr<UnitValueProperty> property, QLineEdit *edit, QWidget *parent);
    void createFontEditors(TAutoPtr<FontProperty> property, QWidget *parent, QWidget *&family,
        QWidget *&style, QWidget *&third);

    // Making an editor: one dispatch in the fixed order of the kinds, one maker per kind,
    // each in the file of its family (plain, choice, style, measure).
    QWidget *makeEditor(TAutoPtr<Property> property, QWidget *parent, EditorMap &editors);
    QWidget *makeIntegerEditor(
        TAutoPtr<IntegerProperty> integer, QWidget *parent, EditorMap &editors);
    QWidget *makeStringEditor(TAutoPtr<StringProperty> string, QWidget *parent, EditorMap &editors);
    QWidget *makeReadOnlyStringEditor(
        TAutoPtr<StringProperty> string, QWidget *parent, EditorMap &editors);
    QWidget *makeSelectorButtons(
        TAutoPtr<SelectorProperty> selector, QWidget *parent, EditorMap &editors);
    QWidget *makeSelectorMenuButton(
        TAutoPtr<SelectorProperty> selector, QWidget *parent, EditorMap &editors);
    QWidget *makeSelectorCombo(
        TAutoPtr<SelectorProperty> selector, QWidget *parent, EditorMap &editors);
    QWidget *makeStylesheetEditor(
        TAutoPtr<StylesheetProperty> stylesheet, QWidget *parent, EditorMap &editors);
    QWidget *makeExtendedSelectorEditor(
        TAutoPtr<ExtendedSelectorProperty> extended, QWidget *parent, EditorMap &editors);
    QWidget *makeActivatableGroupEditor(
        TAutoPtr<ActivatableGroupProperty> activatable, QWidget *parent, EditorMap &editors);
    QWidget *makeListEditor(TAutoPtr<ListProperty> list, QWidget *parent, EditorMap &editors);
    QWidget *makeBoolEditor(TAutoPtr<BoolProperty> boolean, QWidget *parent, EditorMap &editors);
    QWidget *makeCustomColorEditor(
        TAutoPtr<CustomColorProperty> color, QWidget *parent, EditorMap &editors);
    QWidget *makeBrushEditor(TAutoPtr<BrushProperty> brush, QWidget *parent, EditorMap &editors);
    QWidget *makePenStyleEditor(
        TAutoPtr<PenStyleProperty> pen, QWidget *parent, EditorMap &editors);
    QWidget *makeLineHeadStyleEditor(
        TAutoPtr<LineHeadStyleProperty> head, QWidget *parent, EditorMap &editors);
    QWidget *makeFontEditor(TAutoPtr<FontProperty> font, QWidget *parent, EditorMap &editors);
    QWidget *makeFontSizeEditor(
        TAutoPtr<FontSizeProperty> size, QWidget *parent, EditorMap &editors);
    QWidget *makeUnitValueEditor(
        TAutoPtr<UnitValueProperty> measure, QWidget *parent, EditorMap &editors);
    QWidget *makeUnitValueSelectorEditor(
        TAutoPtr<UnitValueSelectorProperty> measures, QWidget *parent, EditorMap &editors);
    // The combo box of a brush, pen or line head: blank row, list, wiring, side entry.
    QComboBox *makeIndexCombo(const Property::Ptr &property, QWidget *parent, EditorMap &editors,
        std::map<Property::Ptr, QPointer<QWidget>> &combos,
        const std::function<void(QComboBox *)> &populate, void (PropertyEditorFactory::*slot)(int));
    bool isFormTheme() const;
    int gapWidth() const;
    QComboBox *newCombo(QWidget *parent, bool selectorCombo) const;
    void fillMeasureSelector(
        TAutoPtr<UnitValueSelectorProperty> property, MyDoubleSpinBox *spin, QComboBox *combo);

    // Applying a value: one dispatch in the fixed order of the apply, one step per kind.
    void applyValues(TAutoPtr<Property> property, const QList<QWidget *> &widgets);
    void applyFontSize(TAutoPtr<FontSizeProperty> size, const QList<QWidget *> &widgets);
    void applyBool(TAutoPtr<BoolProperty> boolean, const QList<QWidget *> &widgets);
    void applyString(TAutoPtr<StringProperty> string, const QList<QWidget *> &widgets);
    void applyUnitValue(TAutoPtr<UnitValueProperty> measure, const QList<QWidget *> &widgets);
    void applyUnitValueSelector(
        TAutoPtr<UnitValueSelectorProperty> measures, const QList<QWidget *> &widgets);
    void applySelector(TAutoPtr<SelectorProperty> selector, const QList<QWidget *> &widgets);
    void applyExtendedSelector(
        TAutoPtr<ExtendedSelectorProperty> extended, const QList<QWidget *> &widgets);
    void applyBrush(TAutoPtr<BrushProperty> brush, const QList<QWidget *> &widgets);
    void applyPenStyle(TAutoPtr<PenStyleProperty> pen, const QList<QWidget *> &widgets);
    void applyLineHeadStyle(TAutoPtr<LineHeadStyleProperty> head, const QList<QWidget *> &widgets);
    void applyFont(TAutoPtr<FontProperty> font, const QList<QWidget *> &widgets);
    void applyInteger(TAutoPtr<IntegerProperty> integer, const QList<QWidget *> &widgets);
    void applyStylesheet(TAutoPtr<StylesheetProperty> stylesheet, const QList<QWidget *> &widgets);
    void applyActivatableGroup(
        TAutoPtr<ActivatableGroupProperty> activatable, const QList<QWidget *> &widgets);
    void applyList(TAutoPtr<ListProperty> list, const QList<QWidget *> &widgets);
    void applyCustomColor(TAutoPtr<CustomColorProperty> color, const QList<QWidget *> &widgets);
    void fontPropertyChanged();
    TAutoPtr<Property> toProperty(QWidget *editor) const;
    // The property behind the sender of an edit signal; null while values are applied, when
    // the widgets' signals are no edits. toProperty(QWidget *) looks up without that rule.
    TAutoPtr<Property> editedProperty(QObject *sender) const;
    FontControls toFontControls(TAutoPtr<Property> property) const;
    // False while values are applied: the widgets' signals then are no edits. Each slot asks
    // first, since QObject::sender() walks every connected editor.
    bool writesAllowed() const { return mApplying == 0; }
    // The parts made for every kind: names for assistive technology, the wheel guard.
    void finishEditor(QWidget *editor, const QString &name);
    bool eventFilter(QObject *watched, QEvent *event) override;
    // The string edit behind one of the three senders of stringPropertyChanged().
    QWidget *stringEditOf(TAutoPtr<StringProperty> property, QObject *sender) const;
    // Takes the edit's text into the property; `commit` marks Return, focus out or a
    // predefine, where a text of the wrong length is refused with the message.
    void commitString(
        TAutoPtr<StringProperty> property, QWidget *edit, bool commit, bool followEnabled);
    void showReadOnlyString(QLabel *icon, QLabel *text, const StringProperty &string);
    void refreshExample(TAutoPtr<StringProperty> property);
    void showFontSizeReference(TAutoPtr<Property> property, Ta_UnitEdit *edit);
    void showMenuButtonItem(QToolButton *button, TAutoPtr<SelectorProperty> selector);
    static void focusCheckedButton(QWidget *container);

    std::map<Property::Ptr, FontControls> mFontControls;
    std::map<QString, QMap<QWidget *, Property::Ptr>> mEditors;
    std::map<Property::Ptr, QPointer<QWidget>> mBrushEditors;
    std::map<Property::Ptr, QPointer<QWidget>> mPenStyleEditors;
    std::map<Property::Ptr, QPointer<QWidget>> mLineHeadStyleEditors;
    std::map<Property::Ptr, QPointer<QWidget>> mReferenceSizeEditors;
    std::map<QComboBox *, Ta_UnitEdit *> mPresetCombos;
    // The widgets registered under each uniqueName, over all owners: applying values looks
    // here instead of walking every editor.
    QHash<QString, QList<QWidget *>> mByName;
    TAutoPtr<BrushProviderQt const> mBrushProvider;
    TAutoPtr<PenStyleProviderQt const> mPenStyleProvider;
    TAutoPtr<LineHeadStyleProviderQt const> mLineHeadStyleProvider;
    TAutoPtr<FontProviderQt const> mFontProvider;
    TAutoPtr<Translator const> mTranslator;
    TAutoPtr<StylesheetManager const> mStylesheetManager;
    int mFontProviderStamp = 0;
    int mBrushProviderStamp = 0;
    bool mLiveStringUpdates = false;
    Property::Ptr mCurrentProperty;
    QWidget *mCurrentEditor = nullptr;
    bool mWithEditorFrame = true;
    WidgetsTheme mWidgetsTheme = WidgetsThemeForm;
    // Above 0 while values are applied: the widgets' own signals then write nothing.
    int mApplying = 0;
    // True while the invalid-entry message is up: the field's focus loss to the message box
    // must not ask again.
    bool mWarning = false;
};

} // namespace TavoLib
