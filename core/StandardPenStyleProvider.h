#pragma once

// A pen style provider that keeps its styles in a table: the ready provider of the reference
// Environment. By default: solid, dashes of three lengths, dots, and dash-dot families, with
// id 100 an alias of solid. Hosts and tests can start empty and add their own.
#include "core/PenStyleProviderQt.h"

#include <map>
#include <vector>

namespace TavoLib {

class TAVOLIBCORE_EXPORT StandardPenStyleProvider : public PenStyleProviderQt
{
public:
    using Ptr = TAutoPtr<StandardPenStyleProvider>;

    enum Contents { Empty, StandardStyles };

    explicit StandardPenStyleProvider(Contents contents = StandardStyles);
    ~StandardPenStyleProvider() override;

    // Adds a style; dashes in units of the line width, empty for solid. Refused for NoStyle,
    // a taken id, an empty name, or a pattern with a length that is not positive.
    bool addStyle(short id, const QString &name, const QVector<qreal> &dashes = {});
    bool addAlias(short alias, short id);
    void clear();

    QString name(short id) const override;
    short canonicalStyle(short id) const override;
    std::list<short> styleList() const override;
    QPixmap preview(short id, const QSize &size) const override;
    QVector<qreal> dashPattern(short id) const override;

private:
    struct Entry
    {
        QString name;
        QVector<qreal> dashes;
    };
    std::map<short, Entry> mEntries;
    std::vector<short> mOrder;
    std::map<short, short> mAliases;
};

} // namespace TavoLib
