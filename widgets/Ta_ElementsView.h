#pragma once

// Ta_ElementsView shows the elements of a host's page (frames, groups, guides) from a model the
// host gives, and moves them through the clipboard under the mime type "ipobject/TavoIP".
// The host's model describes each element as bytes under ElementDataRole: copy() puts the
// selected rows' bytes on the clipboard, cut() copies and then removes the rows (removeRows),
// paste() inserts rows after the current one (insertRows) and hands each its bytes with
// setData(ElementDataRole), which the model may refuse. A paste is whole or nothing: data of
// another type, an envelope that does not read cleanly to its end, or any element the model
// refuses leaves the model as it was. The standard key sequences (Ctrl+C, Ctrl+X, Ctrl+V)
// call the three slots. Signals go out after the view's own work is done.
#include "style/TavoLibGuiExport.h"

#include <QByteArray>
#include <QList>
#include <QTreeView>

class TAVOLIBGUI_EXPORT Ta_ElementsView : public QTreeView
{
    Q_OBJECT
public:
    // The role under which the model gives and takes an element's bytes.
    static constexpr int ElementDataRole = Qt::UserRole + 0x4950;
    // The most elements one clipboard envelope may carry.
    static constexpr int kMaxElements = 100000;

    static QString mimeType();

    explicit Ta_ElementsView(QWidget *parent = nullptr);
    ~Ta_ElementsView() override;

    // The envelope of the clipboard data, for hosts that write or read it themselves.
    static QByteArray encodeElements(const QList<QByteArray> &elements);
    // False, leaving `elements` empty, for anything but a whole envelope.
    static bool decodeElements(const QByteArray &data, QList<QByteArray> *elements);

    // Whether the clipboard holds elements paste() would take.
    bool canPaste() const;

public slots:
    void copy();
    void cut();
    // True when rows were inserted.
    bool paste();

signals:
    // Rows first..last of `parent` were pasted.
    void elementsPasted(const QModelIndex &parent, int first, int last);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QModelIndexList selectedElements() const;
};
