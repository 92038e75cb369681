#pragma once

#include "Booking/BookRemoteNotaryModel.h"

#include <QObject>

/// What the main window shows around the screens: the sidebar, the role switcher, the title, and whether the
/// selected section is open to whoever is there.
class MainWindowModel : public QObject
{
    Q_OBJECT

public:
    explicit MainWindowModel(const ScreenContext& context);

    struct Header
    {
        QString title;
        QString caption;
        QString systemImage;
    };
    struct Group
    {
        QString title;
        QList<AppSection> sections;
    };
    enum class Gate
    {
        open,
        signIn,
        restricted
    };

    Header header() const;
    /// The roles to choose between; empty when there is nothing to choose.
    QList<AppRole> switchableRoles() const;
    QList<Group> groups() const;
    /// The section whose screen is shown. It follows the router once the screen in front may be left.
    AppSection selectedSection() const { return shownSection_; }
    /// The title of the window.
    QString windowTitle() const;
    Gate gate() const;
    /// What the sign-in screen says about the section that asked for it.
    Header signInHeader() const;
    /// "This section is available to Admin accounts only."
    QString restrictionMessage() const;

    /// Goes to a section and leaves a selected session as it is.
    void select(AppSection section);
    /// Switches the role, once the screen in front may be left where the switch changes what it shows.
    void switchRole(AppRole role);
    /// The window is about to come up: the ID token is renewed, before any screen makes a request.
    void appears();

    /// The booking form, kept while the person visits other sections, and when their session ends by itself
    /// until somebody else comes. Forgotten when they sign out.
    std::shared_ptr<BookRemoteNotaryModel> booking();
    /// The model for the screen of the selected section, which is in front from now on: the one that its
    /// person left unfinished when their session ended by itself, or a new one.
    template <typename Model, typename... More>
    std::shared_ptr<Model> screen(More&... more)
    {
        auto model = std::dynamic_pointer_cast<Model>(takeUnfinished());
        if (!model)
            model = std::make_shared<Model>(context_, more...);
        front_ = model;
        return model;
    }

    const ScreenContext& context() const { return context_; }

signals:
    /// The header, the roles or the groups may read differently now.
    void sidebarChanged();
    /// Another section, or another gate before it.
    void screenChanged();

private:
    struct UnfinishedScreen
    {
        AppSection section = AppSection::dashboard;
        std::shared_ptr<ScreenModel> model;
    };

    void userChanged();
    void sectionChanged();
    void showSection();
    void keepUnfinished();
    std::shared_ptr<ScreenModel> takeUnfinished();
    void personLeft();

    ScreenContext context_;
    AppSection shownSection_;
    Gate lastGate_;
    bool wasSignedIn_;
    std::shared_ptr<BookRemoteNotaryModel> booking_;
    std::weak_ptr<ScreenModel> front_;
    UnfinishedScreen unfinished_; ///< of the person whose session ended; without a model when there is none
    QPropertyNotifier onUser_;
    QPropertyNotifier onRole_;
    QPropertyNotifier onSection_;
};
