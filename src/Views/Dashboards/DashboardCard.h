#pragma once

#include "Components/Card.h"

class LoadingLine;
class PlainLabel;
class QAbstractItemModel;
class QHBoxLayout;
class QuietButton;

/// A card of a dashboard with a short list in it. Without rows it says that they are loading, or that there
/// are none.
class DashboardCard : public Card
{
    Q_OBJECT

public:
    /// \param list  shows the rows; the card takes it over
    /// \param rows  must outlive the card
    DashboardCard(
        const QString& title, QWidget* list, const QAbstractItemModel& rows, const QString& emptyText);

    /// Adds a button beside the title; connect to its clicked().
    QuietButton* addAction(const QString& title);
    void setLoading(bool loading);
    void setCompact(bool compact);

private:
    void showRows();

    const QAbstractItemModel& rows_;
    QHBoxLayout* heading_;
    QWidget* list_;
    LoadingLine* loadingLine_;
    PlainLabel* emptyLine_;
    bool isLoading_ = false;
    int padding_ = 0;
};
