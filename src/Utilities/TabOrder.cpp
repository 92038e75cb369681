#include "TabOrder.h"

#include <QWidget>

namespace {

/// Tab stops at a field that hands its focus on, but QWidget only moves one that has a policy of its own. The
/// field has one for as long as this lives: assistive technology takes whatever has a policy for a control.
class Movable
{
public:
    explicit Movable(QWidget* field) : field_(field), control_(field->focusProxy())
    {
        if (control_)
            field_->setFocusPolicy(control_->focusPolicy());
    }
    ~Movable()
    {
        if (!control_)
            return;
        const Qt::FocusPolicy policy = control_->focusPolicy();
        // A field hands its policy on as well.
        field_->setFocusPolicy(Qt::NoFocus);
        control_->setFocusPolicy(policy);
    }
    Q_DISABLE_COPY_MOVE(Movable)

private:
    QWidget* field_;
    QWidget* control_;
};

} // namespace

QWidget* TabOrder::append(QWidget* before, const QList<QWidget*>& fields)
{
    for (QWidget* field : fields) {
        const Movable first(before);
        const Movable second(field);
        QWidget::setTabOrder(before, field);
        before = field;
    }
    return before;
}
