#pragma once

#include <QList>
#include <QWidget>

#include <functional>
#include <initializer_list>

class QVBoxLayout;

/// Pages of the gallery are built from specimens: components in one state each, under a caption. States that
/// only one widget can have at a time (the focus, the pointer) are staged one after the other while the
/// page's picture is taken.
namespace Specimens {

/// A page whose picture is to be taken.
class Sheet : public QWidget
{
    Q_OBJECT

public:
    Sheet();

    QVBoxLayout* column() const { return column_; }
    /// Remembers to run `enter` before, and `leave` after, the part of the picture around `widget` is taken.
    void stage(QWidget* widget, std::function<void()> enter, std::function<void()> leave = {});
    QImage picture();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Scene
    {
        QWidget* widget;
        std::function<void()> enter;
        std::function<void()> leave;
    };
    QVBoxLayout* column_;
    QList<Scene> scenes_;
};

/// A component under its caption.
QWidget* captioned(const QString& caption, QWidget* component, int width = 0);
/// Captioned components side by side, each as wide as it needs.
QWidget* strip(std::initializer_list<QWidget*> specimens, int spacing = 20);
QWidget* heading(const QString& text);
/// Shows a picture of something that is a window of its own.
QWidget* picture(const QPixmap& pixmap);

template <typename W>
W* disabled(W* widget)
{
    widget->setEnabled(false);
    return widget;
}

template <typename W>
W* hovered(W* widget)
{
    widget->setAttribute(Qt::WA_UnderMouse);
    return widget;
}

template <typename W>
W* pressed(W* widget)
{
    widget->setDown(true);
    return widget;
}

template <typename W>
W* checked(W* widget)
{
    widget->setChecked(true);
    return widget;
}

template <typename W>
W* focused(Sheet& sheet, W* widget, QWidget* focus = nullptr)
{
    QWidget* target = focus ? focus : widget;
    sheet.stage(
        widget, [target] { target->setFocus(Qt::OtherFocusReason); }, [target] { target->clearFocus(); });
    return widget;
}

} // namespace Specimens

/// The pages.
QWidget* makeButtonsSheet();
QWidget* makeFieldsSheet();
QWidget* makePanelsSheet();
