#include "QuestionDialog.h"

#include "DestructiveButton.h"
#include "PrimaryButton.h"

QuestionDialog* QuestionDialog::ask(QWidget* asker, const Question& question)
{
    auto* dialog = new QuestionDialog(asker->window());
    dialog->setQuestion(question);
    // Later, because the focus must not move through what is being taken down.
    connect(asker, &QObject::destroyed, dialog, &QDialog::reject, Qt::QueuedConnection);
    dialog->present(dialog->no_);
    return dialog;
}

QuestionDialog::QuestionDialog(QWidget* window)
    : OverlayDialog(window), yes_(new DestructiveButton({})), no_(new PrimaryButton({}))
{
    no_->setDefault(true);
    addButtons({yes_, no_});
    connect(yes_, &Button::clicked, this, &QDialog::accept);
    connect(no_, &Button::clicked, this, &QDialog::reject);
}

void QuestionDialog::setQuestion(const Question& question)
{
    yes_->setTitle(question.yes);
    no_->setTitle(question.no);
    setTexts(question.title, question.message);
}
