#pragma once

#include <QWidget>

class PlainLabel;
class PrimaryButton;
class QHBoxLayout;
class SecondaryButton;

/// The header of a workspace screen: a small overline, a title and a subtitle, with up to two buttons. Texts
/// that are empty take no room.
class WorkspaceHero : public QWidget
{
    Q_OBJECT

public:
    WorkspaceHero(
        const QString& eyebrow, const QString& title, const QString& subtitle, QWidget* parent = nullptr);

    void setEyebrow(const QString& eyebrow);
    void setTitle(const QString& title);
    void setSubtitle(const QString& subtitle);
    /// Adds the button; connect to its clicked().
    PrimaryButton* addPrimary(const QString& title, const QString& systemImage = {});
    SecondaryButton* addSecondary(const QString& title, const QString& systemImage = {});

private:
    PlainLabel* eyebrow_;
    PlainLabel* title_;
    PlainLabel* subtitle_;
    QHBoxLayout* buttons_;
};
