#include "GalleryPage.h"
#include <QLabel>
static QWidget *makeDocumentPage() { return new QLabel("Document"); }
TAVO_GALLERY_PAGE(10, "Document", makeDocumentPage)
