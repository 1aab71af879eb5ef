#include "core/units/MakeRelativePath.h"

#include <QDir>
#include <QStringList>

namespace {

struct SplitPath
{
    QString root;
    QStringList parts;
    bool caseInsensitive = false;
};

// Splits a cleaned absolute path into its root ("/", "C:", "//server/share") and its parts.
bool split(const QString &input, SplitPath *out)
{
    if (input.isEmpty())
        return false;
    QString path = input;
    path.replace(QLatin1Char('\\'), QLatin1Char('/'));
    const bool unc = path.startsWith(QLatin1String("//"));
    path = QDir::cleanPath(path);
    int rest = 0;
    if (unc) {
        // //server/share/...
        if (!path.startsWith(QLatin1String("//")))
            path.prepend(QLatin1Char('/'));
        const int serverEnd = path.indexOf(QLatin1Char('/'), 2);
        if (serverEnd < 0)
            return false;
        int shareEnd = path.indexOf(QLatin1Char('/'), serverEnd + 1);
        if (shareEnd < 0)
            shareEnd = path.size();
        if (shareEnd == serverEnd + 1 || serverEnd == 2)
            return false;
        out->root = path.left(shareEnd).toLower();
        out->caseInsensitive = true;
        rest = shareEnd;
    } else if (path.size() >= 2 && path.at(1) == QLatin1Char(':') && path.at(0).isLetter()) {
        if (path.size() > 2 && path.at(2) != QLatin1Char('/'))
            return false; // "C:foo" is relative to the drive's current folder
        out->root = path.left(2).toUpper();
        out->caseInsensitive = true;
        rest = 2;
    } else if (path.startsWith(QLatin1Char('/'))) {
        out->root = QStringLiteral("/");
        rest = 0;
    } else {
        return false;
    }
    out->parts = path.mid(rest).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    // cleanPath keeps ".." that climbs above the root; the root has no parent.
    while (!out->parts.isEmpty() && out->parts.first() == QLatin1String(".."))
        out->parts.removeFirst();
    return true;
}

} // namespace

bool MakeRelativePath(const QString &path, const QString &base, QString &relative)
{
    SplitPath target;
    SplitPath from;
    if (!split(path, &target) || !split(base, &from))
        return false;
    if (target.root != from.root)
        return false;
    const Qt::CaseSensitivity cs = target.caseInsensitive ? Qt::CaseInsensitive : Qt::CaseSensitive;
    int common = 0;
    while (common < target.parts.size() && common < from.parts.size()
        && target.parts.at(common).compare(from.parts.at(common), cs) == 0) {
        ++common;
    }
    QStringList result;
    for (int i = common; i < from.parts.size(); ++i)
        result << QStringLiteral("..");
    for (int i = common; i < target.parts.size(); ++i)
        result << target.parts.at(i);
    relative = result.isEmpty() ? QStringLiteral(".") : result.join(QLatin1Char('/'));
    return true;
}
