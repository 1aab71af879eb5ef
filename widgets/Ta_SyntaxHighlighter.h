#pragma once

// Ta_SyntaxHighlighter colours the unit expressions that measure fields read with CParser
// ("10mm + 2pt", "(1/3 + 2/3) * 5 cm"): numbers, unit symbols, operators and brackets each
// in a format of their own, and a red wavy line under the first character the parser cannot
// read (an unknown symbol, one of another unit class than unit(), a stray character, a
// bracket that does not match; an expression cut short is marked at its last character).
// Each line of the document is one expression. The formats are the host's to change.
#include "style/TavoLibGuiExport.h"

#include "core/units/CUnit.h"

#include <QSyntaxHighlighter>
#include <QTextCharFormat>

class TAVOLIBGUI_EXPORT Ta_SyntaxHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT
public:
    enum Role { Number, Unit, Operator, Bracket, Error };
    Q_ENUM(Role)

    explicit Ta_SyntaxHighlighter(QTextDocument *document = nullptr);
    ~Ta_SyntaxHighlighter() override;

    // The unit the expressions are read in: symbols of another unit class are errors.
    // Millimetres by default.
    CUnit unit() const { return mUnit; }
    void setUnit(const CUnit &unit);

    QTextCharFormat roleFormat(Role role) const;
    void setRoleFormat(Role role, const QTextCharFormat &format);

    // Where CParser stops reading `text` read in `unit`: -1 when it reads the whole of it,
    // otherwise the index of the first character it cannot read (for an expression cut short
    // or a value that cannot be computed, the last character that is no blank).
    static int errorPosition(const QString &text, const CUnit &unit);

protected:
    void highlightBlock(const QString &text) override;

private:
    CUnit mUnit;
    QTextCharFormat mFormats[Error + 1];
};
