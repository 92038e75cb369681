#pragma once

#include "Admin/AdminNotariesView.h"
#include "Admin/AdminRecordsView.h"
#include "Admin/AdminUsersView.h"
#include "Components/Button.h"
#include "Components/EmptyStateView.h"
#include "Components/LabeledField.h"
#include "Lists/RowListView.h"
#include "ScreensViewTest.h"

/// The lists of the administration in a window of their own, worked by an admin.
class AdminViewTest : public ScreensViewTest
{
protected:
    AdminViewTest() { signInAdmin(); }

    void signInAdmin()
    {
        signIn(account(QStringLiteral("Maya Whitfield"), {AppRole::notary, AppRole::admin}), AppRole::admin);
    }

    template <typename View, typename Model>
    void open(std::shared_ptr<Model>& model, QSize size = {960, 728})
    {
        model = std::make_shared<Model>(context);
        view = std::make_unique<View>(model);
        view->resize(size);
        show(*view);
    }
    void openRecords(const QByteArray& list)
    {
        open<AdminRecordsView>(records);
        answer(requestCount() - 1, list);
    }
    void openUsers(const QByteArray& list)
    {
        open<AdminUsersView>(users);
        answer(requestCount() - 1, list);
    }
    void openNotaries(const QByteArray& list)
    {
        open<AdminNotariesView>(notaries);
        answer(requestCount() - 1, list);
    }

    RowListView* list() const { return view->findChild<RowListView*>(); }
    void clickRow(int row, QWidget& in)
    {
        auto* rows = in.findChild<RowListView*>();
        QTest::mouseClick(
            rows->viewport(), Qt::LeftButton, {}, rows->visualRect(rows->model()->index(row, 0)).center());
        settle();
    }
    void clickRow(int row) { clickRow(row, *view); }
    /// What a screen reader says of the rows.
    QStringList rows() const
    {
        QStringList texts;
        for (int row = 0; row < list()->model()->rowCount(); ++row)
            texts += list()->model()->index(row, 0).data(Qt::AccessibleTextRole).toString();
        return texts;
    }

    /// The box of the field with this caption.
    QWidget* box(const QString& caption) const
    {
        for (LabeledField* field : view->findChildren<LabeledField*>()) {
            if (field->isVisible() && field->caption() == caption)
                return field->control();
        }
        return nullptr;
    }
    /// Replaces what stands in a field, key by key.
    void type(const QString& caption, const QString& text)
    {
        QWidget* field = box(caption);
        ASSERT_NE(field, nullptr) << qPrintable(caption);
        field->setFocus();
        QTest::keySequence(field, QKeySequence::SelectAll);
        QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, text);
    }
    Button* button(const QString& title) const { return named<Button>(*view, title); }

    std::shared_ptr<AdminRecordsModel> records;
    std::shared_ptr<AdminUsersModel> users;
    std::shared_ptr<AdminNotariesModel> notaries;
    std::unique_ptr<QWidget> view;
};
