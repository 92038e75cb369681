#include "ScrollPage.h"

ScrollPage::ScrollPage()
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
}

ScrollPage::ScrollPage(QWidget* content, QWidget* parent) : ScrollPage()
{
    setParent(parent);
    setContent(content);
}

void ScrollPage::setContent(QWidget* content)
{
    setWidget(content);
    content->setAutoFillBackground(false);
}
