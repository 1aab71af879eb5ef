#include "controls/Ta_FontSizeEdit.h"

#include <QRegExp>
#include <cmath>

Ta_FontSizeEdit::Ta_FontSizeEdit(QWidget *parent) : Ta_UnitEdit(parent) { }

QString Ta_FontSizeEdit::modifiedText(const QString &text) const
{
    if (unmodifiedText(text) == text)
        return text + QLatin1Char(' ') + tr("ch");
    return text;
}

QString Ta_FontSizeEdit::unmodifiedText(const QString &text) const
{
    QRegExp suffix(
        QStringLiteral("(.*)\\s*") + tr("ch") + QStringLiteral("(\\s*)"), Qt::CaseInsensitive);
    if (suffix.exactMatch(text))
        return suffix.cap(1);
    return text;
}

double Ta_FontSizeEdit::modified(const double &value) const
{
    return -std::fabs(value);
}

double Ta_FontSizeEdit::unmodified(const double &value) const
{
    return std::fabs(value);
}
