#include "Dashboards/ShortcutRow.h"

#include "Components/PrimaryButton.h"
#include "Components/SecondaryButton.h"
#include "FlowLayout.h"
#include "Spacing.h"

ShortcutRow::ShortcutRow(const QList<Shortcut>& shortcuts, QWidget* parent) : QWidget(parent)
{
    auto* row = new FlowLayout(Spacing::buttons);
    for (const Shortcut& shortcut : shortcuts) {
        Button* button = nullptr;
        if (shortcut.isPrimary)
            button = new PrimaryButton(shortcut.title, shortcut.systemImage);
        else
            button = new SecondaryButton(shortcut.title, shortcut.systemImage);
        connect(button, &Button::clicked, this, [this, shortcut] { emit chosen(shortcut); });
        row->addWidget(button);
        buttons_ += button;
    }
    setLayout(row);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}
