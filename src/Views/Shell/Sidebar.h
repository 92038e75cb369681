#pragma once

#include "Shell/MainWindowModel.h"

#include <QPointer>
#include <QWidget>

class ComboBox;
class QVBoxLayout;
class ScrollPage;
class SidebarEntry;

/// Who is here, in which role, and where they can go. Where they can go scrolls where large text needs more
/// room than there is. Folded it is a rail of symbols, with the words in tool tips.
class Sidebar : public QWidget
{
    Q_OBJECT

public:
    /// The model must outlive the sidebar.
    explicit Sidebar(MainWindowModel& model, QWidget* parent = nullptr);

    void setFolded(bool folded);
    /// The width at which nothing is cut off, which grows with the text.
    int wholeWidth() const;
    /// Gives the focus to the entry of the section that is shown: the place from which a person sets out,
    /// where a key pressed too early changes nothing.
    void focusSelected();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// What the sidebar is built for; it is built anew only when this changes.
    struct Audience
    {
        QString title;
        QString caption;
        QString systemImage;
        QList<AppRole> roles;
        QList<AppSection> sections;

        bool operator==(const Audience&) const = default;
    };

    Audience audience() const;
    void update();
    void rebuild();
    void addHeader();
    QWidget* makeTitle(const MainWindowModel::Header& header) const;
    QWidget* makeTile(const MainWindowModel::Header& header) const;
    void addRoleSwitcher();
    ComboBox* makeRolePicker(const QList<AppRole>& roles);
    void addGroup(const MainWindowModel::Group& group);
    void addHeading(const QString& title);
    std::optional<AppSection> focusedSection() const;
    void focus(AppSection section);

    MainWindowModel& model_;
    QVBoxLayout* pinned_; ///< what does not scroll
    QVBoxLayout* column_; ///< what does
    ScrollPage* page_;
    Audience shownFor_;
    AppSection shownSection_;
    QList<std::pair<AppSection, SidebarEntry*>> entries_;
    QPointer<ComboBox> rolePicker_;
    bool folded_ = false;
};
