#pragma once

// What the tree browser's private half, delegate and view read of a row's property: the
// string behind it, whether it wraps, the text edit inside an editor, and the key under
// which its expansion is remembered.
#include "browser/ViewProperty.h"
#include "core/StringProperty.h"

#include <QTextEdit>
#include <QTreeWidgetItem>

namespace TavoLib::TreeRows {

// A row of the tree. It also knows whether it is to be expanded once it has a child to
// show: nearly every row is asked to be, and a flag here costs no heap, where a set of
// such rows cost a node per row. (Qt keeps every expanded row as a persistent index,
// which each insertion and removal walks; so a row is expanded only once it has a child.)
class Row : public QTreeWidgetItem
{
public:
    static constexpr int Type = QTreeWidgetItem::UserType + 1;
    Row() : QTreeWidgetItem(Type) { }
    bool expandWhenFilled = false;
};

// The row behind a tree item, or null for an item the browser did not make.
inline Row *rowOf(QTreeWidgetItem *item)
{
    return item && item->type() == Row::Type ? static_cast<Row *>(item) : nullptr;
}

// The string behind a row, when the row shows one.
inline TAutoPtr<const StringProperty> stringOf(const QtProperty *property)
{
    const auto *view = dynamic_cast<const ViewProperty *>(property);
    return view ? TAutoPtr<const StringProperty>(view->data()) : TAutoPtr<const StringProperty>();
}

inline bool isMultiLine(const QtProperty *property)
{
    const TAutoPtr<const StringProperty> string = stringOf(property);
    return string && string->multiLine();
}

inline QTextEdit *textEditIn(QWidget *editor)
{
    if (!editor)
        return nullptr;
    if (auto *edit = qobject_cast<QTextEdit *>(editor))
        return edit;
    return editor->findChild<QTextEdit *>();
}

// One line of Latin-1 text: its height is that of the view's font, whatever the text (no
// other font takes part, no second line), so it can change without the row's height.
inline bool isPlainLine(const QString &text)
{
    for (const QChar c : text) {
        if (c.unicode() > 0xff || c == QLatin1Char('\n') || c == QLatin1Char('\r'))
            return false;
    }
    return true;
}

// The key under which a top-level row's expansion is remembered.
inline QString expansionKey(const QtProperty *property)
{
    if (const auto *view = dynamic_cast<const ViewProperty *>(property))
        if (view->data() && !view->data()->uniqueName().isEmpty())
            return view->data()->uniqueName();
    return property->propertyName();
}

} // namespace TavoLib::TreeRows
