#include "core/TavoLibKey.h"

#include <QCoreApplication>

QString TavoLib::TavoLibKey::tr(const QString &context, const QString &key)
{
    const QByteArray c = context.toUtf8();
    const QByteArray k = key.toUtf8();
    return QCoreApplication::translate(c.constData(), k.constData());
}
