#pragma once

// Holds a document's stylesheets, by type and name. The base class keeps them in memory;
// a host may subclass it to serve its own.
#include "core/Stylesheet.h"

#include <QStringList>
#include <list>
#include <vector>

namespace TavoLib {

class TAVOLIBCORE_EXPORT StylesheetManager : public MAutoObj
{
public:
    using Ptr = TAutoPtr<StylesheetManager>;

    StylesheetManager();
    ~StylesheetManager() override;

    // Adds a stylesheet, or replaces the one of the same type and name; null is ignored.
    void addStylesheet(TAutoPtr<Stylesheet const> stylesheet);
    bool removeStylesheet(const QString &type, const QString &name);

    // The types in the order they were first added.
    virtual QStringList types() const;
    // The stylesheets of a type, in the order they were added.
    virtual std::list<TAutoPtr<const Stylesheet>> stylesheetsWithType(const QString &type) const;
    // The stylesheet of that type and name; null when there is none.
    virtual TAutoPtr<const Stylesheet> stylesheet(const QString &type, const QString &name) const;
    // The text that names a stylesheet to the user; empty for null.
    virtual QString displayText(TAutoPtr<const Stylesheet> stylesheet) const;

private:
    std::vector<TAutoPtr<const Stylesheet>> mStylesheets;
};

} // namespace TavoLib
