#pragma once

// The editor factory of the library's browsers. It makes no editor itself: a
// PropertyEditorFactory it holds builds the widget from the row's Property, and this class
// keeps the links between rows, properties and editors. An edit comes back through it as
// the manager's propertyChanged for the row; values pushed in from outside reach the
// editors without an echo.
#include "browser/ViewPropertyManager.h"
#include "property/PropertyEditorFactory.h"
#include "propertybrowser/QtAbstractEditorFactory.h"

#include <QPointer>
#include <map>
#include <unordered_map>
#include <vector>

namespace TavoLib {
class ViewEditorFactory;
}

// The framework's factory template for this library's manager, instantiated once here.
extern template class TAVOLIBGUI_EXPORT QtAbstractEditorFactory<TavoLib::ViewPropertyManager>;

namespace TavoLib {

class TAVOLIBGUI_EXPORT ViewEditorFactory : public QtAbstractEditorFactory<ViewPropertyManager>
{
    Q_OBJECT
public:
    // The parent is this factory's own; the flag goes to the inner factory (live string
    // updates).
    explicit ViewEditorFactory(QObject *parent = nullptr, bool liveStringUpdates = false);
    ~ViewEditorFactory() override;

    using QtAbstractEditorFactory<ViewPropertyManager>::createEditor;

    // Pushes a value loaded from outside into the editors, with the inner factory's signal
    // blocked (a block already set by the caller stays).
    // decided: each loaded object owns its editors. A row's editor is registered under its
    // owner's identifier, so an apply for one object reaches only that object's rows.
    static QString ownerIdentifier(TAutoPtr<const PropertyableObject> owner);
    void applyPropertyValues(TAutoPtr<Property> property, const QString &ownerIdentifier);
    // Gives every live editor of the row the row's enabled state.
    void enablePropertyEditors(ViewProperty *view);

    ViewProperty *toProperty(QWidget *editor);
    ViewProperty *toProperty(TAutoPtr<Property> data);

    void setBrushProvider(TAutoPtr<BrushProviderQt const> provider);
    void setFontProvider(TAutoPtr<FontProviderQt const> provider);
    void setLineHeadStyleProvider(TAutoPtr<LineHeadStyleProviderQt const> provider);
    void setPenStyleProvider(TAutoPtr<PenStyleProviderQt const> provider);
    void setStylesheetManager(TAutoPtr<StylesheetManager const> manager);
    void setTranslator(TAutoPtr<Translator const> translator);
    // Written straight into the inner factory; the manager needs the theme too.
    void setWidgetsTheme(PropertyEditorFactory::WidgetsTheme theme);
    void setWithEditorFrame(bool withFrame);

    QString translate(const QString &text) const;
    // The inner factory, for callers that make editors of properties without a row.
    PropertyEditorFactory &propertyEditorFactory() { return mFactory; }

signals:
    // Asks the host to make the current row's value defined (see activateProperty).
    void resolveUndefinedProperty(QtProperty *property);

public slots:
    // For an action on the editor side that leaves the undefined state; the host connects
    // it and answers resolveUndefinedProperty.
    void activateProperty();

protected:
    QWidget *createEditor(ViewPropertyManager *manager, QtProperty *property, QWidget *parent) override;
    void connectPropertyManager(ViewPropertyManager *manager) override;
    void disconnectPropertyManager(ViewPropertyManager *manager) override;

private slots:
    void propertyChanged(TavoLib::Property::Ptr data);

private:
    // An editor is found by its address; the guard tells whether the widget there is still
    // the one recorded. Dead entries are swept now and then, so the table stays in
    // proportion to the live editors.
    struct EditorLink
    {
        QPointer<QWidget> editor;
        ViewProperty *row = nullptr;
    };
    // What refers to one row, so that forgetting a row costs only its own entries.
    struct RowLinks
    {
        std::vector<QPointer<QWidget>> editors;
        std::vector<TAutoPtr<Property>> data;
    };
    void forgetRow(QtProperty *row);
    void sweepDeadEditors();

    std::unordered_map<const QWidget *, EditorLink> mEditorToProperty;
    std::unordered_map<const QtProperty *, RowLinks> mRowLinks;
    std::map<TAutoPtr<Property>, ViewProperty *> mPropertyToView;
    size_t mSweepAt = 64;
    ViewProperty *mCurrentProperty = nullptr;
    QWidget *mCurrentEditor = nullptr;
    TAutoPtr<const Translator> mTranslator;
    PropertyEditorFactory mFactory;
};

} // namespace TavoLib
