#include "Specimens.h"

#include "Components/AlertDialog.h"
#include "Components/Card.h"
#include "Components/CompactStatCard.h"
#include "Components/EmptyStateView.h"
#include "Components/FeatureLine.h"
#include "Components/InfoTile.h"
#include "Components/ListRowDelegate.h"
#include "Components/LoadingLine.h"
#include "Components/MetricTile.h"
#include "Components/PendingFileRow.h"
#include "Components/PlainLabel.h"
#include "Components/SectionTitle.h"
#include "Components/SidebarEntry.h"
#include "Components/WorkspaceHero.h"
#include "Layouts.h"
#include "Palette.h"

#include <QBoxLayout>
#include <QPainter>
#include <QStyleOptionViewItem>

using namespace Qt::StringLiterals;
using namespace Specimens;

namespace {

void addGroup(Card* card, const QString& title, QWidget* specimens)
{
    card->add(heading(title), 24);
    card->add(specimens, 12);
}

SidebarEntry* entry()
{
    return new SidebarEntry(u"Sessions"_s, u"doc.text.magnifyingglass"_s);
}

/// One row, drawn in a state.
class RowSpecimen : public QWidget
{
public:
    explicit RowSpecimen(QStyle::State state)
        : delegate_([](const QModelIndex&) { return sessionRow(); }, {.textLines = 2, .metaLine = true}),
          state_(state)
    {
        setFixedSize(320, delegate_.sizeHint({}, {}).height());
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        QStyleOptionViewItem option;
        option.rect = rect();
        option.state = state_ | QStyle::State_Enabled;
        delegate_.paint(&painter, option, {});
    }

private:
    static ListRow sessionRow()
    {
        ListRow row;
        row.title = u"Priya Raman, Tomas Alder"_s;
        row.pill = u"scheduled"_s;
        row.lines = {u"2026-03-12 2:30 PM"_s};
        row.metaSymbol = u"doc.text.fill"_s;
        row.meta = u"Power of Attorney"_s;
        return row;
    }

    ListRowDelegate delegate_;
    QStyle::State state_;
};

PlainLabel* note(const QString& text)
{
    return new PlainLabel(text, Type::body, Brand::steel);
}

Card* rows(Sheet& sheet)
{
    auto* card = new Card;
    addGroup(card, u"Sidebar entry"_s,
        strip({captioned(u"Default"_s, entry(), 196), captioned(u"Hover"_s, hovered(entry()), 196),
            captioned(u"Selected"_s, checked(entry()), 196),
            captioned(u"Keyboard focus"_s, focused(sheet, entry()), 196)}));
    addGroup(card, u"List row"_s,
        strip({captioned(u"Default"_s, new RowSpecimen(QStyle::State_None)),
            captioned(u"Hover"_s, new RowSpecimen(QStyle::State_MouseOver)),
            captioned(u"Selected"_s, new RowSpecimen(QStyle::State_Selected))}));
    card->add(
        captioned(u"Keyboard focus"_s, new RowSpecimen(QStyle::State_Selected | QStyle::State_HasFocus)), 20);
    addGroup(card, u"List area"_s,
        strip({captioned(u"Loading"_s, new LoadingLine(u"Loading sessions…"_s)),
            captioned(u"Detail loading"_s, new LoadingLine(u"Loading session…"_s)),
            captioned(u"Dashboard card"_s, note(u"No remote sessions found."_s)),
            captioned(u"Dashboard card"_s, note(u"No assigned sessions."_s)),
            captioned(u"Documents"_s, note(u"No files have been uploaded into this session yet."_s))}));
    return card;
}

QWidget* tiles()
{
    const auto caption = u"Rush estimate based on the number of signatures."_s;
    auto* fee
        = new CompactStatCard(u"Estimated Notary Fee"_s, u"$41.00"_s, u"dollarsign.circle.fill"_s, caption);
    auto* darkFee = new CompactStatCard(u"Estimated Notary Fee"_s, u"$41.00"_s, u"dollarsign.circle.fill"_s,
        caption, CompactStatCard::Look::dark);
    auto* metric = new MetricTile(u"Remote Sessions"_s, u"148"_s, u"video.badge.checkmark"_s);
    auto* row = Layouts::row(12);
    for (QWidget* tile :
        {static_cast<QWidget*>(metric), static_cast<QWidget*>(fee), static_cast<QWidget*>(darkFee)})
        row->addWidget(tile, 1, Qt::AlignTop);
    return Layouts::holding(row);
}

QWidget* alert(const QString& title, const QString& message, int height)
{
    auto* window = new QWidget;
    window->setFixedSize(460, height);
    window->show();
    auto* dialog = AlertDialog::present(window, title, message);
    dialog->setAttribute(Qt::WA_OpaquePaintEvent, false);
    auto* card = dialog->findChild<Surface*>(QString(), Qt::FindDirectChildrenOnly);
    auto* result = picture(card->grab());
    delete window;
    return result;
}

Card* texts()
{
    auto* card = new Card;
    addGroup(card, u"FeatureLine, InfoTile, SectionTitle"_s,
        strip({captioned(u"FeatureLine"_s,
                   new FeatureLine(u"message.fill"_s, u"Session Workspace"_s,
                       u"Open a session to review status, signers, notary updates, notes, and messages."_s),
                   340),
            captioned(u"InfoTile"_s,
                new InfoTile(u"lock.shield.fill"_s, u"Secure session handling"_s,
                    u"You will be returned to sign in when your session ends."_s),
                340),
            captioned(u"SectionTitle with caption"_s,
                new SectionTitle(u"Profile"_s,
                    u"This information is used for booking, session updates, and account records."_s),
                340)}));
    addGroup(card, u"EmptyStateView"_s,
        strip({captioned(u"No rows"_s,
                   new EmptyStateView(u"doc.text.magnifyingglass"_s, u"No Sessions Found"_s,
                       u"Book a remote notary session or adjust your search filters."_s),
                   340),
            captioned(u"Nothing selected"_s,
                new EmptyStateView(u"person.3.fill"_s, u"Select a User"_s,
                    u"Choose a user to edit profile fields or change password."_s),
                340),
            captioned(u"Not loaded"_s,
                new EmptyStateView(u"exclamationmark.triangle"_s, u"Session Not Found"_s,
                    u"The selected session could not be loaded."_s),
                340)}));
    addGroup(card, u"AlertMessage"_s,
        strip({captioned(u"One dismiss button, answers Return and Escape"_s,
                   alert(u"Saved"_s, u"Session was updated."_s, 400)),
            captioned(u"Long message"_s,
                alert(u"Startup Setting Not Changed"_s,
                    u"macOS did not allow the login item change. Open System Settings > General > Login "
                    u"Items "
                    u"and enable Quorvel manually."_s,
                    400))}));
    return card;
}

Card* files()
{
    const QList<ComboBox::Option> types{{u"Government ID"_s, u"id"_s}, {u"Notarized Document"_s, u"deed"_s}};
    auto* card = new Card;
    card->add(heading(u"Pending file"_s));
    card->add(new PendingFileRow(u"photo.fill"_s,
                  {u"alder driver license"_s, u"Document label"_s, u"alder_driver_license.png • 860 KB"_s,
                      u"id"_s, u"Remove"_s},
                  types),
        12);
    auto* narrow = new PendingFileRow(u"doc.richtext.fill"_s,
        {u"deed"_s, u"Document label"_s, u"deed.pdf • 3.2 MB"_s, u"deed"_s, u"Remove"_s}, types);
    narrow->setFixedWidth(517);
    card->add(narrow, 8);
    return card;
}

} // namespace

QWidget* makePanelsSheet()
{
    auto* sheet = new Sheet;
    auto* hero = new WorkspaceHero(u"Remote Notary"_s, u"Book a Session"_s,
        u"Request a remote online notarization with signer details, billing option, and preferred time."_s);
    hero->addSecondary(u"Sign Out"_s, u"rectangle.portrait.and.arrow.right"_s);
    sheet->column()->addWidget(rows(*sheet));
    sheet->column()->addWidget(tiles());
    sheet->column()->addWidget(texts());
    sheet->column()->addWidget(hero);
    sheet->column()->addWidget(files());
    return sheet;
}
