#pragma once

#include "Screen/ScreenContext.h"
#include "Screen/Shortcut.h"

/// The landing screen: who is signed in, shortcuts, and what the program can do.
class DashboardHomeModel
{
public:
    explicit DashboardHomeModel(const ScreenContext& context) : context_(context) { }

    struct Feature
    {
        QString systemImage;
        QString title;
        QString text;
    };

    static QString heroTitle();
    static QString heroText();
    static const QList<Feature>& features();

    bool showsSignedInCard() const { return context_.auth.isSignedIn(); }
    QString signedInName() const { return context_.auth.displayName(); }
    AppRole role() const { return context_.auth.role(); }
    /// "Active role: Notary"
    QString activeRoleLine() const;
    /// The one without a section opens the website.
    QList<Shortcut> quickActions() const;

    void run(const Shortcut& action);
    void signOut() { context_.auth.leave(); }

    const ScreenContext& context() const { return context_; }

private:
    ScreenContext context_;
};
