#pragma once

// Ta_TextEdit is the plain-text editor for short texts in panels (a caption, a note, an alt
// text). It takes plain text only: pasted or dropped rich text arrives as its plain text.
// With a maximum length set, input that would go beyond it is refused (a paste is cut to the
// room left, and the editor beeps); a text set by the host is cut to the maximum too. Like
// the line edits of the property editors it commits when the user leaves it: editingFinished()
// is sent on focus out and on Ctrl+Return, once per change, never while nothing changed. Tab
// moves the focus on, as in every other field of a panel.
#include "style/TavoLibGuiExport.h"

#include <QPlainTextEdit>

class TAVOLIBGUI_EXPORT Ta_TextEdit : public QPlainTextEdit
{
    Q_OBJECT
    Q_PROPERTY(int maxLength READ maxLength WRITE setMaxLength)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY editingFinished USER true)
public:
    explicit Ta_TextEdit(QWidget *parent = nullptr);
    ~Ta_TextEdit() override;

    // The most characters the text may hold; 0 (the default) is no limit. A shorter maximum
    // cuts the text now.
    int maxLength() const { return mMaxLength; }
    void setMaxLength(int length);

    QString text() const { return toPlainText(); }
    // Shows `text` (cut to the maximum) as the committed text: no editingFinished() follows.
    void setText(const QString &text);

    // Whether the text changed since it was last set or committed.
    bool isModifiedSinceCommit() const { return text() != mCommitted; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public slots:
    // Commits as leaving the field does: editingFinished() if the text changed.
    void commit();

signals:
    // The user's text was committed (focus out, Ctrl+Return, commit()).
    void editingFinished();

protected:
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;

private:
    void enforceMaxLength(int position, int added);

    int mMaxLength = 0;
    QString mCommitted;
    bool mEnforcing = false;
};
