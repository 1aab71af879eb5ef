// Gallery page "Resources": what the reference environment serves. The machine's font
// families grouped by writing system, each with a sample drawn in its own face; the brush
// palette and gradients; pen styles; line heads at the start and the end of a line.
#include "GalleryPage.h"

#include "core/BrushProviderQt.h"
#include "core/Environment.h"
#include "core/FontProviderQt.h"
#include "core/LineHeadStyleProviderQt.h"
#include "core/PenStyleProviderQt.h"

#include <QFontDatabase>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QListWidget>
#include <QPainter>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <map>

using namespace TavoLib;

namespace {

// Families per section shown before the rest is summed up in one row.
constexpr int kFamiliesPerSection = 5;

QString typeName(int type)
{
    switch (type) {
    case FontProvider::TrueType:
        return QStringLiteral("TrueType");
    case FontProvider::OpenType:
        return QStringLiteral("OpenType");
    case FontProvider::Type1:
        return QStringLiteral("Type 1");
    default:
        return QStringLiteral("other");
    }
}

QWidget *fontTree(TAutoPtr<const FontProviderQt> fonts)
{
    auto *tree = new QTreeWidget;
    tree->setColumnCount(4);
    tree->setHeaderLabels({ QStringLiteral("Family"), QStringLiteral("Styles"),
        QStringLiteral("Format"), QStringLiteral("Sample") });
    tree->setRootIsDecorated(false);
    tree->setSelectionMode(QAbstractItemView::NoSelection);

    // Families by section: -1 symbol, 0 no writing system, then by writing system number.
    std::map<int, QStringList> sections;
    std::map<QString, short> firstOfFamily;
    for (short id : fonts->fontList(true)) {
        const QString family = fonts->familyName(id);
        if (firstOfFamily.count(family))
            continue;
        firstOfFamily[family] = id;
        if (fonts->isSymbolFamily(family)) {
            sections[-1] << family;
            continue;
        }
        const QList<int> systems = fonts->baseWritingSystems(id);
        if (systems.isEmpty())
            sections[0] << family;
        for (int ws : systems)
            sections[ws] << family;
    }

    for (const auto &section : sections) {
        const QString title = section.first == -1 ? QStringLiteral("Symbol")
            : section.first == 0
            ? QStringLiteral("Other")
            : QFontDatabase::writingSystemName(QFontDatabase::WritingSystem(section.first));
        auto *header = new QTreeWidgetItem(tree);
        header->setText(0, QStringLiteral("%1 (%2)").arg(title).arg(section.second.size()));
        QFont bold = tree->font();
        bold.setBold(true);
        header->setFont(0, bold);
        header->setFirstColumnSpanned(true);
        header->setBackground(0, QColor(232, 236, 242));

        int shown = 0;
        for (const QString &family : section.second) {
            if (shown++ == kFamiliesPerSection) {
                auto *more = new QTreeWidgetItem(tree);
                more->setText(0,
                    QStringLiteral("    … and %1 more")
                        .arg(section.second.size() - kFamiliesPerSection));
                more->setForeground(0, QColor(110, 110, 110));
                break;
            }
            const short id = firstOfFamily[family];
            auto *item = new QTreeWidgetItem(tree);
            item->setText(0, QStringLiteral("    ") + family);
            item->setText(1, QString::number(fonts->fontsOfFamily(family).size()));
            item->setText(2, typeName(fonts->fontType(id)));
            // In a writing system's section, the sample is in that writing system.
            const QString sample = section.first > 0 ? FontProvider::sampleText(section.first)
                                                     : fonts->exampleText(id);
            item->setText(3, sample);
            item->setFont(3, fonts->qFont(id, 18));
            if (fonts->isEmphasized(id)) {
                QFont emphasized = tree->font();
                emphasized.setBold(true);
                item->setFont(0, emphasized);
            }
        }
    }
    tree->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    tree->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    tree->header()->setSectionResizeMode(2, QHeaderView::ResizeToContents);
    return tree;
}

QListWidget *iconList(QSize iconSize, bool grid)
{
    auto *list = new QListWidget;
    list->setIconSize(iconSize);
    list->setSelectionMode(QAbstractItemView::NoSelection);
    if (grid) {
        list->setViewMode(QListView::IconMode);
        list->setResizeMode(QListView::Adjust);
        list->setGridSize(QSize(iconSize.width() + 62, iconSize.height() + 22));
        list->setWordWrap(true);
        list->setMovement(QListView::Static);
    }
    return list;
}

// A preview inside a thin frame, as pickers show them.
QIcon framed(const QPixmap &preview, QSize size)
{
    QPixmap pixmap(size);
    pixmap.fill(Qt::white);
    QPainter painter(&pixmap);
    painter.drawPixmap(1, 1, preview);
    painter.setPen(QColor(90, 90, 90));
    painter.drawRect(QRect(QPoint(0, 0), size).adjusted(0, 0, -1, -1));
    return QIcon(pixmap);
}

QWidget *makeResourcesPage()
{
    TAutoPtr<Environment> env(new Environment);
    const TAutoPtr<const FontProviderQt> fonts(env->fontProvider());
    const TAutoPtr<const BrushProviderQt> brushes(env->brushProvider());
    const TAutoPtr<const PenStyleProviderQt> pens(env->penStyleProvider());
    const TAutoPtr<const LineHeadStyleProviderQt> heads(env->lineHeadStyleProvider());

    auto *page = new QWidget;
    auto *layout = new QHBoxLayout(page);

    auto *fontBox = new QGroupBox(QStringLiteral("System fonts"));
    auto *fontLayout = new QVBoxLayout(fontBox);
    fontLayout->addWidget(fontTree(fonts));
    layout->addWidget(fontBox, 5);

    auto *right = new QVBoxLayout;
    layout->addLayout(right, 4);

    auto *brushBox = new QGroupBox(QStringLiteral("Brushes"));
    auto *brushList = iconList(QSize(40, 24), true);
    for (short id : brushes->brushList()) {
        const QSize size(40, 24);
        auto *item = new QListWidgetItem(framed(brushes->preview(id, size - QSize(2, 2)), size),
            brushes->displayName(id), brushList);
        item->setToolTip(brushes->brushName(id));
    }
    brushList->setMinimumHeight(290);
    (new QVBoxLayout(brushBox))->addWidget(brushList);
    right->addWidget(brushBox, 3);

    auto *penBox = new QGroupBox(QStringLiteral("Pen styles"));
    auto *penList = iconList(QSize(120, 14), false);
    for (short id : pens->styleList())
        new QListWidgetItem(QIcon(pens->preview(id, QSize(120, 14))), pens->name(id), penList);
    (new QVBoxLayout(penBox))->addWidget(penList);
    right->addWidget(penBox, 3);

    auto *headBox = new QGroupBox(QStringLiteral("Line heads (start, end)"));
    auto *headList = iconList(QSize(130, 20), false);
    for (short id : heads->styleList()) {
        QPixmap both(130, 20);
        both.fill(Qt::transparent);
        QPainter painter(&both);
        painter.drawPixmap(0, 0, heads->preview(id, true, QSize(60, 20)));
        painter.drawPixmap(70, 0, heads->preview(id, false, QSize(60, 20)));
        painter.end();
        new QListWidgetItem(QIcon(both), heads->name(id), headList);
    }
    (new QVBoxLayout(headBox))->addWidget(headList);
    right->addWidget(headBox, 3);
    return page;
}

} // namespace

TAVO_GALLERY_PAGE(30, "Resources", makeResourcesPage)
