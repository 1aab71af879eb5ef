#pragma once

// A brush provider that keeps its brushes in a table: the ready provider of the reference
// Environment. By default it holds the process colours, the RGB primaries, white, greys in
// steps of 10 %, registration and a few linear and radial gradients; "Process Black" is an
// alias of "Black". Hosts and tests can start empty and add their own.
#include "core/BrushProviderQt.h"

#include <QHash>
#include <map>
#include <vector>

namespace TavoLib {

class TAVOLIBCORE_EXPORT StandardBrushProvider : public BrushProviderQt
{
public:
    using Ptr = TAutoPtr<StandardBrushProvider>;

    enum Contents { Empty, StandardPalette };

    explicit StandardBrushProvider(Contents contents = StandardPalette);
    ~StandardBrushProvider() override;

    // Adds a brush; refused for NoBrush, a taken id or key, an empty key or a null brush.
    // An empty display name shows the key.
    bool addBrush(short id, const QString &key, TAutoPtr<Brush> brush,
        const QString &displayName = QString());
    bool addColor(
        short id, const QString &key, const QColor &color, const QString &displayName = QString());
    // A second id of a listed brush; brushName of either gives the key of the brush.
    bool addAlias(short alias, short id);
    void clear();

    QString brushName(short id) const override;
    QString displayName(short id) const override;
    short brushIdentifier(const QString &name) const override;
    std::list<short> brushList() const override;
    TAutoPtr<Brush> brush(short id) const override;
    QPixmap preview(short id, const QSize &size) const override;

private:
    struct Entry
    {
        QString key;
        QString displayName;
        TAutoPtr<Brush> brush;
    };
    const Entry *entry(short id) const;

    std::map<short, Entry> mEntries;
    std::vector<short> mOrder;
    std::map<short, short> mAliases;
    QHash<QString, short> mKeys;
};

} // namespace TavoLib
