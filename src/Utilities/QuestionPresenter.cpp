#include "QuestionPresenter.h"

#include "Bindings.h"
#include "Components/QuestionDialog.h"

void presentQuestions(
    QWidget* screen, QProperty<std::optional<Question>>& question, std::function<void(bool)> answered)
{
    const auto open = std::make_shared<QPointer<QuestionDialog>>();
    follow(
        screen, question, [screen, open, answered = std::move(answered)](const std::optional<Question>& now) {
            // A dialog that is closing has given its answer.
            QuestionDialog* dialog = *open && (*open)->isVisible() ? open->data() : nullptr;
            if (!now) {
                if (dialog)
                    dialog->reject();
            } else if (dialog) {
                dialog->setQuestion(*now);
            } else {
                dialog = QuestionDialog::ask(screen, *now);
                *open = dialog;
                QObject::connect(dialog, &QDialog::finished, screen,
                    [answered](int result) { answered(result == QDialog::Accepted); });
            }
        });
}
