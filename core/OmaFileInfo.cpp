#include "core/OmaFileInfo.h"

#include <QDir>

namespace TavoLib {

OmaFileInfo::OmaFileInfo(const QFileInfo &info) : mInfo(info) {}

OmaFileInfo::~OmaFileInfo() = default;

bool OmaFileInfo::isRoot() const
{
    return mInfo.isRoot();
}

bool OmaFileInfo::isDir() const
{
    return mInfo.isDir();
}

bool OmaFileInfo::isFile() const
{
    return mInfo.isFile();
}

bool OmaFileInfo::isSymLink() const
{
    return mInfo.isSymLink();
}

bool OmaFileInfo::isDatabaseSource() const
{
    const QString s = mInfo.suffix().toLower();
    return mInfo.isFile() && (s == QLatin1String("db") || s == QLatin1String("sqlite"));
}

bool OmaFileInfo::isWebDrive() const
{
    const QString path = mInfo.filePath();
    static const char *const schemes[] = { "dav://", "davs://", "http://", "https://" };
    for (const char *scheme : schemes) {
        if (path.startsWith(QLatin1String(scheme), Qt::CaseInsensitive))
            return true;
    }
    return path.contains(QLatin1String("/gvfs/dav:"));
}

QString OmaFileInfo::suffix()
{
    return mInfo.suffix();
}

QString OmaFileInfo::absoluteFilePath()
{
    return mInfo.absoluteFilePath();
}

} // namespace TavoLib
