// Gallery page "Views and files": the short-text editor with a maximum, and a unit expression
// coloured as the parser reads it, its error marked; a list the user may reorder, an empty one
// with its placeholder, and a table whose header keeps its sections.
#include "GalleryPage.h"
#include "dialogs/LoginDialog.h"
#include "dialogs/TextCodecDialog.h"
#include "widgets/ImagePreviewView.h"
#include "widgets/OmaFileIconProvider.h"
#include "widgets/SearchPathsWidget.h"
#include "widgets/Ta_ElementsView.h"
#include "widgets/Ta_HeaderView.h"
#include "widgets/Ta_ListView.h"
#include "widgets/Ta_SyntaxHighlighter.h"
#include "widgets/Ta_TextEdit.h"

#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QTableView>
#include <QVBoxLayout>

namespace {

// A page's elements as a host keeps them: each element's bytes are its kind and name, and a
// pasted element takes its name from them.
class PageElements : public QStandardItemModel
{
public:
    explicit PageElements(QObject *parent) : QStandardItemModel(parent)
    {
        setHorizontalHeaderLabels({ QObject::tr("Element") });
        for (const char *name : { "Text frame: Headline", "Picture frame: cover.tif", "Group: Sidebar",
                 "Guide: 40 mm" })
            appendRow(element(QString::fromLatin1(name)));
    }
    bool setData(const QModelIndex &index, const QVariant &value, int role) override
    {
        if (role == Ta_ElementsView::ElementDataRole)
            QStandardItemModel::setData(index, QString::fromUtf8(value.toByteArray()), Qt::DisplayRole);
        return QStandardItemModel::setData(index, value, role);
    }

private:
    static QStandardItem *element(const QString &name)
    {
        auto *item = new QStandardItem(name);
        item->setData(name.toUtf8(), Ta_ElementsView::ElementDataRole);
        return item;
    }
};

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

QWidget *makeViewsGroup(QWidget *page)
{
    auto *group = new QGroupBox(QObject::tr("Views"));
    auto *layout = new QHBoxLayout(group);
    auto *order = new Ta_ListView;
    order->setModel(new QStringListModel(
        { "Masthead", "Headline", "Standfirst", "Body text", "Caption" }, page));
    order->setDragReorderEnabled(true);
    order->setAccessibleName(QObject::tr("Reading order (Ctrl+Up/Down moves)"));
    layout->addWidget(order, 2);
    auto *empty = new Ta_ListView;
    empty->setModel(new QStringListModel(page));
    empty->setPlaceholderText(QObject::tr("No fonts in this folder"));
    empty->setAccessibleName(QObject::tr("Fonts"));
    layout->addWidget(empty, 2);

    auto *model = new QStandardItemModel(0, 3, page);
    model->setHorizontalHeaderLabels({ QObject::tr("Name"), QObject::tr("Kind"), QObject::tr("Size") });
    const char *rows[][3] = { { "cover.tif", "Image", "2.4 MB" }, { "issue-12.ipd", "Document", "812 KB" },
        { "Serif Book.otf", "Font", "96 KB" } };
    for (const auto &row : rows) {
        auto *name = new QStandardItem(row[0]);
        name->setIcon(OmaFileIconProvider::iconOf(
            OmaFileIconProvider::kindOf(QFileInfo(QString::fromLatin1(row[0])))));
        model->appendRow({ name, new QStandardItem(row[1]), new QStandardItem(row[2]) });
    }
    auto *table = new QTableView;
    auto *header = new Ta_HeaderView(Qt::Horizontal, table);
    table->setHorizontalHeader(header);
    table->setModel(model);
    table->verticalHeader()->hide();
    table->resizeColumnsToContents(); // every file name and kind shown whole
    header->moveSection(2, 1);
    header->setStretchLastSection(true);
    table->setAccessibleName(QObject::tr("Files"));
    layout->addWidget(table, 4);

    auto *elements = new Ta_ElementsView;
    elements->setModel(new PageElements(page));
    elements->setRootIsDecorated(false);
    elements->setAccessibleName(QObject::tr("Page elements (Ctrl+C, Ctrl+X, Ctrl+V)"));
    elements->setCurrentIndex(elements->model()->index(1, 0));
    layout->addWidget(elements, 3);
    return group;
}

// The file icons at three sizes, drawn for each.
QWidget *makeIconsGroup()
{
    auto *group = new QGroupBox(QObject::tr("File icons"));
    auto *grid = new QGridLayout(group);
    const struct
    {
        OmaFileIconProvider::Kind kind;
        const char *name;
    } kinds[] = { { OmaFileIconProvider::Document, "Document" }, { OmaFileIconProvider::Image, "Image" },
        { OmaFileIconProvider::Font, "Font" }, { OmaFileIconProvider::Folder, "Folder" },
        { OmaFileIconProvider::Generic, "Other" } };
    int column = 0;
    for (const auto &entry : kinds) {
        int row = 0;
        for (int size : { 16, 32, 48 }) {
            auto *label = new QLabel;
            label->setPixmap(OmaFileIconProvider::pixmapOf(entry.kind, size));
            label->setAlignment(Qt::AlignCenter);
            grid->addWidget(label, row++, column);
        }
        auto *name = new QLabel(QObject::tr(entry.name));
        name->setAlignment(Qt::AlignCenter);
        grid->addWidget(name, row, column++);
    }
    return group;
}

// Search folders of a document in /usr: one kept relative, one that does not exist.
QWidget *makeSearchPathsGroup()
{
    auto *group = new QGroupBox(QObject::tr("Search folders"));
    auto *layout = new QVBoxLayout(group);
    auto *paths = new SearchPathsWidget;
    paths->setBasePath(QStringLiteral("/usr"));
    auto entry = [](const char *path, bool relative, bool subfolder) {
        OmaLib::SearchPath e;
        e.path = QString::fromLatin1(path);
        e.relative = relative;
        e.subfolder = subfolder;
        return e;
    };
    paths->setSearchPaths({ entry("share", true, true), entry("/tmp", false, false),
        entry("/archive/images 2019", false, true) });
    layout->addWidget(paths);
    return group;
}

// A picture drawn here (a dusk over hills), fitted, and a file that is no image.
QWidget *makePreviewGroup()
{
    auto *group = new QGroupBox(QObject::tr("Image preview"));
    auto *layout = new QHBoxLayout(group);
    QImage picture(640, 420, QImage::Format_RGB32);
    {
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        QLinearGradient sky(0, 0, 0, 420);
        sky.setColorAt(0, QColor(0x2b, 0x3a, 0x67));
        sky.setColorAt(1, QColor(0xf2, 0xa6, 0x5a));
        painter.fillRect(picture.rect(), sky);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0xff, 0xe0, 0x8a));
        painter.drawEllipse(QPointF(430, 250), 46, 46);
        painter.setBrush(QColor(0x3d, 0x5a, 0x3c));
        painter.drawEllipse(QRectF(-120, 280, 560, 300));
        painter.setBrush(QColor(0x27, 0x40, 0x2a));
        painter.drawEllipse(QRectF(260, 320, 560, 260));
    }
    auto *preview = new ImagePreviewView;
    preview->setImage(picture);
    preview->setAccessibleName(QObject::tr("Preview of cover.tif"));
    layout->addWidget(preview, 3);
    auto *broken = new ImagePreviewView;
    broken->setFileName(QStringLiteral(":/no/such/picture.tif"));
    broken->setAccessibleName(QObject::tr("Preview of a missing file"));
    layout->addWidget(broken, 2);
    return group;
}

// The two dialogs, shown in the page: a login with a name typed, and the encoding of a
// Latin-1 text previewed.
QWidget *makeDialogsGroup(QWidget *page)
{
    auto *group = new QGroupBox(QObject::tr("Dialogs"));
    group->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    group->setMaximumHeight(220);
    auto *layout = new QHBoxLayout(group);
    auto *login = new TavoLib::LoginDialog(page, QStringLiteral("GalleryLogin"));
    login->setWindowFlags(Qt::Widget);
    login->setRemembersUserName(false);
    login->setMessage(QObject::tr("Log in to the picture archive."));
    login->setUserName(QStringLiteral("layout-desk"));
    layout->addWidget(login);
    auto *codec = new TavoLib::TextCodecDialog(page);
    codec->setWindowFlags(Qt::Widget);
    codec->setSample(QByteArray("Caf\xe9 cr\xe8me, na\xefve fa\xe7" "ade\nStra\xdf" "e 12"));
    codec->setCodec(QStringLiteral("ISO8859-1"));
    layout->addWidget(codec, 1);
    return group;
}

QWidget *makeViewsAndFilesPage()
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    auto *top = new QHBoxLayout;
    top->addWidget(makeTextGroup(), 2);
    top->addWidget(makeIconsGroup());
    layout->addLayout(top);
    layout->addWidget(makeViewsGroup(page), 3);
    auto *bottom = new QHBoxLayout;
    bottom->addWidget(makeSearchPathsGroup(), 3);
    bottom->addWidget(makePreviewGroup(), 2);
    layout->addLayout(bottom, 2);
    layout->addWidget(makeDialogsGroup(page));
    return page;
}

} // namespace

TAVO_GALLERY_PAGE(78, "Views and files", makeViewsAndFilesPage)
