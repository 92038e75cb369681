#include "Components/Button.h"
#include "Components/Chip.h"
#include "Components/ComboBox.h"
#include "Components/ComboListDelegate.h"
#include "Components/Emblem.h"
#include "Components/IconButton.h"
#include "Components/PlainLabel.h"
#include "Components/SidebarEntry.h"
#include "Components/SymbolView.h"
#include "Shell/MenuBarExtra.h"
#include "Symbols.h"
#include "WholeWindowTest.h"

using namespace Qt::StringLiterals;

namespace {

struct SymbolRow
{
    const char* scene; ///< of allScenes()
    QString text; ///< of a label or a control
    QString symbol; ///< on it, or beside it
};

void PrintTo(const SymbolRow& row, std::ostream* out)
{
    *out << row.scene << ": " << row.text.toStdString();
}

/// The symbol of the first decoration within a part of a screen; empty when it has none.
QString firstSymbolIn(const QWidget& part)
{
    for (const QWidget* widget : part.findChildren<QWidget*>()) {
        if (!widget->isVisible())
            continue;
        if (const auto* chip = qobject_cast<const Chip*>(widget))
            return chip->systemImage();
        if (const auto* symbol = qobject_cast<const SymbolView*>(widget))
            return symbol->systemImage();
        if (const auto* emblem = qobject_cast<const Emblem*>(widget))
            return emblem->systemImage();
    }
    return {};
}

class WidgetSymbols : public WholeWindowTest
{
protected:
    void open(const std::string& scene)
    {
        for (const Scene& each : allScenes()) {
            if (each.name == scene)
                WholeWindowTest::open(each, {1180, 4000});
        }
        ASSERT_TRUE(window) << "no such scene";
    }

    /// On the control of that name, or else in the smallest part around the label of that text.
    QString symbolOf(const QString& text)
    {
        if (const auto* button = named<Button>(*window, text))
            return button->systemImage();
        if (const auto* button = named<IconButton>(*window, text))
            return button->systemImage();
        for (const PlainLabel* label : window->findChildren<PlainLabel*>()) {
            if (!label->isVisible() || label->text() != text)
                continue;
            for (const QWidget* around = label->parentWidget(); around; around = around->parentWidget()) {
                const QString symbol = firstSymbolIn(*around);
                if (!symbol.isEmpty())
                    return symbol;
            }
        }
        return {};
    }
};

class WidgetSymbolsTable : public WidgetSymbols, public testing::WithParamInterface<SymbolRow>
{ };

} // namespace

TEST_P(WidgetSymbolsTable, StandWhereTheyBelong)
{
    open(GetParam().scene);
    EXPECT_EQ(symbolOf(GetParam().text), GetParam().symbol);
}

INSTANTIATE_TEST_SUITE_P(Screens, WidgetSymbolsTable,
    testing::Values(SymbolRow{"SignIn", u"Remote notary desktop workspace"_s, u"checkmark.seal.fill"_s},
        SymbolRow{"SignIn", u"Guided booking"_s, u"calendar.badge.plus"_s},
        SymbolRow{"SignIn", u"Session workspace"_s, u"doc.text.magnifyingglass"_s},
        SymbolRow{"SignIn", u"Menu bar access"_s, u"menubar.rectangle"_s},
        SymbolRow{"SignIn", u"Secure session handling"_s, u"lock.shield.fill"_s},
        SymbolRow{"SignIn", u"Sign in to continue to your desktop workspace."_s, u"lock.open.fill"_s},
        SymbolRow{"Booking", u"Estimated Notary Fee"_s, u"dollarsign.circle.fill"_s},
        SymbolRow{"Booking", u"Add Signer"_s, u"plus.circle.fill"_s},
        SymbolRow{"Booking", u"Remove Signer"_s, u"minus.circle"_s},
        SymbolRow{"Booking", u"Drop files for this booking"_s, u"tray.and.arrow.up.fill"_s},
        SymbolRow{"Booking", u"Choose Files"_s, u"plus.circle.fill"_s},
        SymbolRow{"Settings", u"Sign Out"_s, u"rectangle.portrait.and.arrow.right"_s},
        SymbolRow{"Settings", u"Active Role"_s, u"gearshape.fill"_s},
        SymbolRow{"Settings", u"Save Profile"_s, u"checkmark.circle.fill"_s},
        SymbolRow{"Settings", u"Change Password"_s, u"key.fill"_s},
        SymbolRow{"Settings", u"Open Quorvel when I sign in"_s, u"power.circle.fill"_s},
        SymbolRow{"Settings", u"Menu Bar"_s, u"menubar.rectangle"_s},
        SymbolRow{"Settings", u"Default Zone"_s, u"clock.fill"_s},
        SymbolRow{"Settings", u"Contact Support"_s, u"envelope.fill"_s},
        SymbolRow{"Settings", u"Visit Website"_s, u"safari"_s},
        SymbolRow{"SettingsSignedOut", u"Sign in required"_s, u"person.crop.circle"_s},
        SymbolRow{"Restricted", u"Access Restricted"_s, u"lock.fill"_s},
        SymbolRow{"Record", u"Delete"_s, u"trash"_s}, SymbolRow{"Notary", u"Delete"_s, u"trash"_s}),
    [](const auto& row) { return row.param.scene + std::to_string(row.index); });

TEST_F(WidgetSymbols, OfTheHeadingFollowTheModeOfTheSignIn)
{
    open("SignIn");
    click(named<QAbstractButton>(*window, u"Create Account"_s));
    EXPECT_EQ(symbolOf(u"Create your Quorvel account."_s), u"person.badge.plus"_s);
}

TEST_F(WidgetSymbols, OfABookingAreThoseOfItsFilesAndOfItsSuccess)
{
    open("Booking");
    const std::shared_ptr<BookRemoteNotaryModel> booking = model.booking();
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"deed.pdf"_s));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.close();
    booking->addUploads({QUrl::fromLocalFile(file.fileName())});
    settle();
    EXPECT_EQ(symbolOf(u"Remove deed.pdf"_s), u"xmark.circle.fill"_s);
    EXPECT_EQ(symbolOf(u"Type"_s), u"doc.richtext.fill"_s);
    booking->successMessage = u"It was created."_s;
    settle();
    EXPECT_EQ(symbolOf(u"Request Submitted"_s), u"checkmark.circle.fill"_s);
}

TEST_F(WidgetSymbols, OfTheSidebarAreThoseOfItsSections)
{
    WholeWindowTest::open({"Home", std::nullopt, AppSection::dashboard});
    signIn(
        account(u"Maya Whitfield"_s, {AppRole::business, AppRole::notary, AppRole::admin}), AppRole::admin);
    settle();
    QStringList shown;
    for (const SidebarEntry* entry : window->findChildren<SidebarEntry*>()) {
        if (entry->isVisible())
            shown += entry->systemImage();
    }
    EXPECT_EQ(shown,
        QStringList({u"rectangle.grid.2x2.fill"_s, u"calendar.badge.plus"_s, u"doc.text.magnifyingglass"_s,
            u"building.2.fill"_s, u"checkmark.seal.fill"_s, u"gauge.with.dots.needle.bottom.50percent"_s,
            u"tray.full.fill"_s, u"person.3.fill"_s, u"person.badge.shield.checkmark.fill"_s,
            u"gearshape.fill"_s}));

    const auto* picker = named<ComboBox>(*window, u"Role"_s);
    QStringList roles;
    for (int index = 0; index < picker->count(); ++index)
        roles += picker->itemText(index) + u'|'
            + picker->itemData(index, ComboListDelegate::SymbolRole).toString();
    EXPECT_EQ(roles,
        QStringList({u"Client|person.fill"_s, u"Business|building.2.fill"_s, u"Notary|checkmark.seal.fill"_s,
            u"Admin|gearshape.fill"_s}));
    auth.signOut();
    settle();
    EXPECT_EQ(named<SidebarEntry>(*window, u"Users"_s), nullptr);
    EXPECT_EQ(named<ComboBox>(*window, u"Role"_s), nullptr);
}

TEST_F(WidgetSymbols, OfTheStatusMenuAreThoseOfItsItems)
{
    signIn(account(u"Priya"_s));
    MenuBarExtra extra(context, MenuBarDropdownModel(context, {[] {}, [] {}}));
    const MenuBarDropdownModel expected(context, {[] {}, [] {}});
    QList<QImage> shown;
    for (const QAction* action : extra.menu().actions()) {
        if (!action->icon().isNull())
            shown += action->icon().pixmap(32).toImage();
    }
    QList<QImage> wanted;
    for (const MenuBarDropdownModel::Item& item : expected.items()) {
        if (!item.systemImage.isEmpty())
            wanted += Symbols::icon(item.systemImage).pixmap(32).toImage();
    }
    EXPECT_GT(shown.size(), 5);
    EXPECT_EQ(shown, wanted);
    EXPECT_EQ(extra.item().toolTip(), u"Quorvel"_s);
}
