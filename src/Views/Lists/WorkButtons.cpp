#include "Lists/WorkButtons.h"

#include "Bindings.h"
#include "Components/Button.h"

void showWork(Button* button, EditPaneModel& model, EditPaneModel::Work work)
{
    using Work = EditPaneModel::Work;
    follow(button, model.work, [button, work](Work now) {
        button->setLoading(now == work);
        button->setEnabled(now == work || now == Work::none);
    });
}
