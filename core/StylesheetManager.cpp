#include "core/StylesheetManager.h"

namespace TavoLib {

StylesheetManager::StylesheetManager() = default;
StylesheetManager::~StylesheetManager() = default;

void StylesheetManager::addStylesheet(TAutoPtr<Stylesheet const> stylesheet)
{
    if (!stylesheet)
        return;
    for (auto &existing : mStylesheets) {
        if (existing->type() == stylesheet->type() && existing->name() == stylesheet->name()) {
            existing = stylesheet;
            return;
        }
    }
    mStylesheets.push_back(stylesheet);
}

bool StylesheetManager::removeStylesheet(const QString &type, const QString &name)
{
    for (auto it = mStylesheets.begin(); it != mStylesheets.end(); ++it) {
        if ((*it)->type() == type && (*it)->name() == name) {
            mStylesheets.erase(it);
            return true;
        }
    }
    return false;
}

QStringList StylesheetManager::types() const
{
    QStringList result;
    for (const auto &s : mStylesheets) {
        if (!result.contains(s->type()))
            result << s->type();
    }
    return result;
}

std::list<TAutoPtr<const Stylesheet>> StylesheetManager::stylesheetsWithType(const QString &type) const
{
    std::list<TAutoPtr<const Stylesheet>> result;
    for (const auto &s : mStylesheets) {
        if (s->type() == type)
            result.push_back(s);
    }
    return result;
}

TAutoPtr<const Stylesheet> StylesheetManager::stylesheet(const QString &type, const QString &name) const
{
    for (const auto &s : mStylesheets) {
        if (s->type() == type && s->name() == name)
            return s;
    }
    return TAutoPtr<const Stylesheet>();
}

QString StylesheetManager::displayText(TAutoPtr<const Stylesheet> stylesheet) const
{
    return stylesheet ? stylesheet->displayText() : QString();
}

} // namespace TavoLib
