#pragma once

#include "Components/ScrollPage.h"
#include "Shell/MainWindowModel.h"

#include <QPointer>

class QVBoxLayout;

/// Who is here, in which role, and where they can go. It scrolls where large text needs more room than there
/// is.
class Sidebar : public ScrollPage
{
    Q_OBJECT

public:
    /// The model must outlive the sidebar.
    explicit Sidebar(MainWindowModel& model, QWidget* parent = nullptr);

    /// The width at which no section's title is cut off, which grows with the text.
    int wholeTitlesWidth() const;
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
    void addRoleSwitcher();
    void addGroup(const MainWindowModel::Group& group);

    MainWindowModel& model_;
    QVBoxLayout* column_;
    Audience shownFor_;
    AppSection shownSection_;
    QList<std::pair<AppSection, class SidebarEntry*>> entries_;
    QPointer<class ComboBox> rolePicker_;
};
