// Gallery page "Views and files": the short-text editor with a maximum, and a unit expression
// coloured as the parser reads it, its error marked.
#include "GalleryPage.h"
#include "widgets/Ta_SyntaxHighlighter.h"
#include "widgets/Ta_TextEdit.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

QWidget *makeTextGroup()
{
    auto *group = new QGroupBox(QObject::tr("Text"));
    auto *form = new QFormLayout(group);
    auto *note = new Ta_TextEdit;
    note->setMaxLength(80);
    note->setPlaceholderText(QObject::tr("A note for the layout, at most 80 characters"));
    note->setAccessibleName(QObject::tr("Note"));
    auto *noteLabel = new QLabel(QObject::tr("&Note:"));
    noteLabel->setBuddy(note);
    form->addRow(noteLabel, note);

    auto *expression = new Ta_TextEdit;
    expression->setAccessibleName(QObject::tr("Expression"));
    expression->setText(QStringLiteral("(1/3 + 2/3) * 5 cm + 2pt\n10 mm - 3 qq"));
    new Ta_SyntaxHighlighter(expression->document());
    auto *expressionLabel = new QLabel(QObject::tr("&Expression:"));
    expressionLabel->setBuddy(expression);
    form->addRow(expressionLabel, expression);
    return group;
}

QWidget *makeViewsAndFilesPage()
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    auto *top = new QHBoxLayout;
    top->addWidget(makeTextGroup());
    layout->addLayout(top);
    layout->addStretch();
    return page;
}

} // namespace

TAVO_GALLERY_PAGE(78, "Views and files", makeViewsAndFilesPage)
