#include "core/Translator.h"

#include <QCoreApplication>

namespace TavoLib {

Translator::Translator(const QString &context) : mContext(context) {}

Translator::~Translator() = default;

TAutoPtr<Translator> Translator::defaultTranslator()
{
    static const TAutoPtr<Translator> instance(new Translator());
    return instance;
}

QString Translator::translate(const QString &text) const
{
    if (text.isEmpty())
        return text;
    const QByteArray context = mContext.toUtf8();
    const QByteArray source = text.toUtf8();
    return QCoreApplication::translate(context.constData(), source.constData());
}

} // namespace TavoLib
