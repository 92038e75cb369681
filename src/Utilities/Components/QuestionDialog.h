#pragma once

#include "OverlayDialog.h"
#include "Question.h"

/// A question over its window. The safe answer has the focus first, and Escape gives it too. The signals
/// accepted() and rejected() tell the answer.
class QuestionDialog : public OverlayDialog
{
    Q_OBJECT

public:
    /// Asks over the window of `asker`; the question goes, rejected, when the asker does.
    static QuestionDialog* ask(QWidget* asker, const Question& question);

    /// Asks something else instead.
    void setQuestion(const Question& question);

    Button* yesButton() const { return yes_; }
    Button* noButton() const { return no_; }

private:
    explicit QuestionDialog(QWidget* window);

    Button* yes_;
    Button* no_;
};
