#include "Shell/Sidebar.h"

#include "Accessibility.h"
#include "Components/Card.h"
#include "Components/Chip.h"
#include "Components/ComboBox.h"
#include "Components/LabeledField.h"
#include "Components/PlainLabel.h"
#include "Components/ScrollPage.h"
#include "Components/SidebarEntry.h"
#include "Components/SoftDivider.h"
#include "Layouts.h"
#include "Palette.h"
#include "PaneKeys.h"
#include "Spacing.h"

#include <QPainter>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int outerMargin = 12;
constexpr int headerTile = 40;
constexpr int foldedTile = 32;
constexpr int textIndent = 8; ///< of the header and the headings, to where the entries' symbols begin
constexpr int betweenEntries = 2;
constexpr int betweenGroups = 8;

} // namespace

Sidebar::Sidebar(MainWindowModel& model, QWidget* parent)
    : QWidget(parent), model_(model), pinned_(Layouts::column(0)), column_(Layouts::column(0)),
      page_(new ScrollPage(Layouts::holding(column_))), shownSection_(model.selectedSection())
{
    pinned_->setContentsMargins(outerMargin, outerMargin, outerMargin, 0);
    column_->setContentsMargins(outerMargin, 0, outerMargin, outerMargin);
    auto* parts = Layouts::column(0);
    parts->addLayout(pinned_);
    parts->addWidget(page_, 1);
    setLayout(parts);
    connect(&model_, &MainWindowModel::sidebarChanged, this, &Sidebar::update);
    rebuild();
}

/// Only other people or other roles change what there is to select. Whoever is among the entries when another
/// is selected, by a shortcut, goes along and hears of it; nobody else loses their place.
void Sidebar::update()
{
    const bool isAmongEntries
        = std::ranges::any_of(entries_, [](const auto& listed) { return listed.second->hasFocus(); });
    if (shownFor_ != audience())
        rebuild();
    for (const auto& [section, entry] : entries_) {
        entry->setChecked(section == model_.selectedSection());
        if (entry->isChecked())
            page_->ensureWidgetVisible(entry);
    }
    const AppSection before = std::exchange(shownSection_, model_.selectedSection());
    if (isAmongEntries && before != shownSection_)
        focusSelected();
    // A role that was chosen and not switched to after all.
    if (rolePicker_)
        rolePicker_->setValue(rawValue(model_.context().auth.role()));
}

void Sidebar::setFolded(bool folded)
{
    if (folded != std::exchange(folded_, folded))
        rebuild();
}

Sidebar::Audience Sidebar::audience() const
{
    const MainWindowModel::Header header = model_.header();
    QList<AppSection> sections;
    for (const MainWindowModel::Group& group : model_.groups())
        sections += group.sections;
    return {header.title, header.caption, header.systemImage, model_.switchableRoles(), sections};
}

void Sidebar::rebuild()
{
    const bool hadFocus = PaneKeys::focusWithin(this).has_value();
    const std::optional<AppSection> focused = focusedSection();
    // Choosing a role rebuilds the very picker that it is chosen in.
    const bool picksRole = rolePicker_ && rolePicker_->hasFocus();
    shownFor_ = audience();
    Layouts::clear(pinned_);
    Layouts::clear(column_);
    entries_.clear();
    addHeader();
    addRoleSwitcher();
    for (const MainWindowModel::Group& group : model_.groups())
        addGroup(group);
    column_->addStretch();
    if (picksRole && rolePicker_)
        rolePicker_->setFocus(Qt::OtherFocusReason);
    else if (hadFocus)
        focus(focused.value_or(model_.selectedSection()));
}

void Sidebar::focusSelected()
{
    focus(model_.selectedSection());
}

std::optional<AppSection> Sidebar::focusedSection() const
{
    for (const auto& [section, entry] : entries_) {
        if (entry->hasFocus())
            return section;
    }
    return std::nullopt;
}

/// On the entry of the selected section where that one is not offered to whoever is here.
void Sidebar::focus(AppSection wanted)
{
    for (const auto& [section, entry] : entries_) {
        if (section == wanted)
            return entry->setFocus(Qt::OtherFocusReason);
    }
    for (const auto& [section, entry] : entries_) {
        if (entry->isChecked())
            entry->setFocus(Qt::OtherFocusReason);
    }
}

int Sidebar::wholeWidth() const
{
    if (folded_)
        return Height::compact() + 2 * outerMargin;
    int widest = 0;
    for (const auto& [section, entry] : entries_)
        widest = std::max(widest, entry->sizeHint().width());
    return widest + 2 * outerMargin;
}

void Sidebar::addHeader()
{
    const MainWindowModel::Header header = model_.header();
    pinned_->addWidget(folded_ ? makeTile(header) : makeTitle(header));
    pinned_->addSpacing(outerMargin);
}

QWidget* Sidebar::makeTitle(const MainWindowModel::Header& header) const
{
    auto* name = new PlainLabel(header.title, Type::sub);
    auto* caption = new PlainLabel(header.caption, Type::small, Brand::steel);
    name->setFit(PlainLabel::Fit::elide);
    caption->setFit(PlainLabel::Fit::elide);

    auto* row = Layouts::row(12);
    row->setContentsMargins(textIndent, 0, 0, 0);
    row->addWidget(new Chip(header.systemImage, headerTile, Chip::Look::dark));
    auto* texts = Layouts::column(0, {name, caption});
    row->addLayout(texts, 1);
    row->setAlignment(texts, Qt::AlignVCenter);
    return Layouts::holding(row);
}

QWidget* Sidebar::makeTile(const MainWindowModel::Header& header) const
{
    auto* tile = new Chip(header.systemImage, foldedTile, Chip::Look::dark);
    tile->setToolTip(PlainText::toolTip(header.title + u'\n' + header.caption));
    Accessibility::setRole(tile, QAccessible::StaticText);
    tile->setAccessibleName(header.title + u", "_s + header.caption);
    return tile;
}

void Sidebar::addRoleSwitcher()
{
    const QList<AppRole> roles = model_.switchableRoles();
    if (roles.isEmpty())
        return;
    ComboBox* picker = makeRolePicker(roles);
    rolePicker_ = picker;
    if (folded_) {
        picker->setSymbolOnly();
        picker->setAccessibleName(u"Role"_s);
        pinned_->addWidget(picker, 0, Qt::AlignHCenter);
        pinned_->addSpacing(betweenGroups);
        return;
    }
    auto* card = new Card(outerMargin);
    card->add(new PlainLabel(u"Active Workspace"_s, Type::group));
    auto* field = new LabeledField(u"Role"_s, picker, LabeledField::Placement::beside);
    field->layout()->setSpacing(8);
    card->add(field, 8);
    pinned_->addWidget(card);
    pinned_->addSpacing(4);
}

ComboBox* Sidebar::makeRolePicker(const QList<AppRole>& roles)
{
    QList<ComboBox::Option> options;
    for (const AppRole role : roles)
        options += {title(role), rawValue(role), systemImage(role)};
    auto* picker = new ComboBox(options);
    picker->setCompact(true);
    picker->setValue(rawValue(model_.context().auth.role()));
    connect(picker, &ComboBox::valueChanged, this, [this](const QString& value) {
        if (const std::optional<AppRole> role = appRole(value))
            model_.switchRole(*role);
    });
    return picker;
}

void Sidebar::addGroup(const MainWindowModel::Group& group)
{
    addHeading(group.title);
    auto* entries = Layouts::column(betweenEntries);
    for (const AppSection section : group.sections) {
        auto* entry = new SidebarEntry(title(section), systemImage(section));
        entry->setFolded(folded_);
        entry->setChecked(section == model_.selectedSection());
        connect(entry, &SidebarEntry::clicked, this, [this, section] { model_.select(section); });
        entries->addWidget(entry);
        entries_ += {section, entry};
    }
    auto* list = Layouts::holding(entries);
    Accessibility::setRole(list, QAccessible::List);
    list->setAccessibleName(group.title);
    column_->addWidget(list);
}

/// A rail has no room for words: a line parts its groups.
void Sidebar::addHeading(const QString& title)
{
    if (folded_) {
        if (entries_.isEmpty())
            return;
        column_->addSpacing(betweenGroups);
        column_->addWidget(new SoftDivider);
        column_->addSpacing(betweenGroups);
        return;
    }
    auto* heading = Layouts::column(0, {new PlainLabel(title, Type::group, Brand::steel)});
    heading->setContentsMargins(textIndent, 12, textIndent, 4);
    column_->addLayout(heading);
}

void Sidebar::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), Palette::color(Brand::panel));
}
