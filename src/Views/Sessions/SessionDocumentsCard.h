#pragma once

#include "Components/Card.h"

#include <QList>
#include <QUrl>

#include <functional>
#include <memory>

class QScrollArea;
class SecondaryButton;
class SessionDocumentsModel;

/// The documents of a session, and the place to add more: where files are dropped or chosen, the list of
/// those that wait, and how far their upload has come. Shows the alerts of its model itself.
class SessionDocumentsCard : public Card
{
    Q_OBJECT

public:
    /// \param page  in which the card scrolls
    SessionDocumentsCard(
        std::shared_ptr<SessionDocumentsModel> model, QScrollArea& page, QWidget* parent = nullptr);
    ~SessionDocumentsCard() override;

    /// Asks for files over the window of a widget, and hands on what was chosen; not called when the person
    /// chooses nothing. The system's file chooser, unless a test brings its own.
    std::function<void(QWidget* over, std::function<void(QList<QUrl>)> chosen)> chooseFiles;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void addDocuments(QScrollArea& page);
    void addDropArea();
    void addUploadButton();
    void choose();

    std::shared_ptr<SessionDocumentsModel> model_;
    SecondaryButton* choose_ = nullptr;
    bool wasShown_ = false;
};
