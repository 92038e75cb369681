#include "ScrollPage.h"

ScrollPage::ScrollPage(QWidget* content, QWidget* parent) : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setWidget(content);
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
}
