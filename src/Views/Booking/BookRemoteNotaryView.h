#pragma once

#include <QList>
#include <QUrl>
#include <QWidget>

#include <functional>
#include <memory>

class BookingForm;
class BookRemoteNotaryModel;
class Page;
class SuccessCard;
class WorkspaceHero;

/// The booking screen: the request form, and after a successful submission the success card in its place.
/// Everything is shown from the model, which outlives the view.
class BookRemoteNotaryView : public QWidget
{
    Q_OBJECT

public:
    explicit BookRemoteNotaryView(std::shared_ptr<BookRemoteNotaryModel> model, QWidget* parent = nullptr);
    ~BookRemoteNotaryView() override;

    /// Asks for files over the window of a widget, and hands on what was chosen; not called when the person
    /// chooses nothing. The system's file chooser, unless a test brings its own.
    std::function<void(QWidget* over, std::function<void(QList<QUrl>)> chosen)> chooseFiles;

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showFormOrSuccess();

    std::shared_ptr<BookRemoteNotaryModel> model_;
    Page* page_;
    WorkspaceHero* hero_;
    BookingForm* form_;
    SuccessCard* success_;
    bool wasShown_ = false;
};
