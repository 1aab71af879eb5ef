#pragma once

// Translates the untranslated names that properties carry, through Qt's translation system
// in the translator's context. A host may subclass it to serve its own catalogue.
#include "core/MAutoObj.h"
#include "core/TAutoPtr.h"
#include "core/TavoLibCoreExport.h"

#include <QString>

namespace TavoLib {

class TAVOLIBCORE_EXPORT Translator : public MAutoObj
{
public:
    using Ptr = TAutoPtr<Translator>;

    explicit Translator(const QString &context = QStringLiteral("TavoLib"));
    ~Translator() override;

    // The process-wide translator.
    static TAutoPtr<Translator> defaultTranslator();

    QString context() const { return mContext; }
    virtual QString translate(const QString &text) const;

private:
    QString mContext;
};

} // namespace TavoLib
