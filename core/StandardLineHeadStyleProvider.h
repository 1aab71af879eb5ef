#pragma once

// A line-head provider that keeps its heads in a table: the ready provider of the reference
// Environment. By default: none, open, filled and barbed arrows, circle, square, diamond and
// bar, with id 100 an alias of none. Hosts and tests can start empty and add their own.
#include "core/LineHeadStyleProviderQt.h"

#include <map>
#include <vector>

namespace TavoLib {

class TAVOLIBCORE_EXPORT StandardLineHeadStyleProvider : public LineHeadStyleProviderQt
{
public:
    using Ptr = TAutoPtr<StandardLineHeadStyleProvider>;

    enum Contents { Empty, StandardStyles };
    // The built-in outlines, for addStyle.
    enum Shape { NoHead, OpenArrow, FilledArrow, BarbedArrow, Circle, Square, Diamond, Bar };

    explicit StandardLineHeadStyleProvider(Contents contents = StandardStyles);
    ~StandardLineHeadStyleProvider() override;

    // The outline of a built-in shape, in units of the line width, tip at (0, 0).
    static QPainterPath shapePath(Shape shape);
    static bool isShapeFilled(Shape shape);

    // Refused for NoStyle, a taken id or an empty name.
    bool addStyle(short id, const QString &name, const QPainterPath &path, bool filled);
    bool addStyle(short id, const QString &name, Shape shape);
    bool addAlias(short alias, short id);
    void clear();

    QString name(short id) const override;
    short canonicalStyle(short id) const override;
    std::list<short> styleList() const override;
    QPixmap preview(short id, bool start, const QSize &size) const override;
    QPainterPath headPath(short id) const override;
    bool isFilled(short id) const override;

private:
    struct Entry
    {
        QString name;
        QPainterPath path;
        bool filled = false;
    };
    const Entry *entry(short id) const;

    std::map<short, Entry> mEntries;
    std::vector<short> mOrder;
    std::map<short, short> mAliases;
};

} // namespace TavoLib
