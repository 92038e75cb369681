#pragma once

#include "Components/AlertDialog.h"
#include "Components/Button.h"
#include "Components/MetricTile.h"
#include "Components/PlainLabel.h"
#include "Components/RowList.h"
#include "Dashboards/AdminDashboardView.h"
#include "Dashboards/BusinessDashboardView.h"
#include "Dashboards/NotaryDashboardView.h"
#include "ScreensViewTest.h"
#include "Shell/ContentPane.h"

/// A dashboard in a window of its own, for somebody who holds every role.
class DashboardViewTest : public ScreensViewTest
{
protected:
    DashboardViewTest()
    {
        signIn(
            account(QStringLiteral("Maya Whitfield"), {AppRole::business, AppRole::notary, AppRole::admin}),
            AppRole::admin);
    }

    /// The content area of the first window.
    static constexpr QSize regular{960, 728};
    /// The content area of the least window.
    static constexpr QSize least{760, 648};

    template <typename View, typename Model>
    std::shared_ptr<Model> open(QSize size = regular)
    {
        const auto model = std::make_shared<Model>(context);
        view = new View(model);
        window.setScreen(view);
        window.resize(size);
        show(window);
        return model;
    }
    std::shared_ptr<BusinessDashboardModel> openBusiness(QSize size = regular)
    {
        return open<BusinessDashboardView, BusinessDashboardModel>(size);
    }
    std::shared_ptr<NotaryDashboardModel> openNotary(QSize size = regular)
    {
        return open<NotaryDashboardView, NotaryDashboardModel>(size);
    }
    std::shared_ptr<AdminDashboardModel> openAdmin(QSize size = regular)
    {
        return open<AdminDashboardView, AdminDashboardModel>(size);
    }

    /// Answers the newest requests, in their order.
    void answerAll(const QByteArrayList& answers)
    {
        const qsizetype first = requestCount() - answers.size();
        for (qsizetype i = 0; i < answers.size(); ++i)
            answer(first + i, answers[i]);
    }

    /// What the tiles say to a screen reader, in their order: "Clients: 6".
    QStringList tiles() const
    {
        QStringList tiles;
        for (const MetricTile* tile : view->findChildren<MetricTile*>())
            tiles += tile->accessibleName() + QStringLiteral(": ") + tile->accessibleDescription();
        return tiles;
    }

    RowList* list(const QString& name) { return named<RowList>(*view, name); }

    /// What a screen reader says of a list's rows.
    QStringList rows(const QString& name)
    {
        QStringList rows;
        const RowList* shown = list(name);
        for (int row = 0; shown && row < shown->model()->rowCount(); ++row)
            rows += shown->model()->index(row, 0).data(Qt::AccessibleTextRole).toString();
        return rows;
    }

    void clickRow(const QString& name, int row)
    {
        RowList* clicked = list(name);
        ASSERT_NE(clicked, nullptr);
        QTest::mouseClick(clicked->viewport(), Qt::LeftButton, {},
            clicked->visualRect(clicked->model()->index(row, 0)).center());
        settle();
    }

    /// Whether a visible label reads so.
    bool says(const QString& text) const
    {
        for (const PlainLabel* label : view->findChildren<PlainLabel*>()) {
            if (label->isVisible() && label->text() == text)
                return true;
        }
        return false;
    }

    AlertDialog* alert() const { return window.findChild<AlertDialog*>(); }

    /// The accessible name of what has the keyboard focus.
    static QString focused()
    {
        const QWidget* widget = QApplication::focusWidget();
        return widget ? widget->accessibleName() : QString();
    }

    /// To whatever has the focus.
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        settle();
    }

    /// The names of all stops of the Tab key, from the first.
    QStringList tabRound()
    {
        QStringList names;
        window.setFocus();
        const QWidget* first = nullptr;
        for (int i = 0; i < 50; ++i) {
            QTest::keyClick(&window, Qt::Key_Tab);
            const QWidget* stop = QApplication::focusWidget();
            if (stop == first)
                break;
            first = first ? first : stop;
            names += focused();
        }
        settle();
        return names;
    }

    ContentPane window;
    DashboardView* view = nullptr;
};
