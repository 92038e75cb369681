#include "Account/WelcomePanel.h"

#include "Components/Chip.h"
#include "Components/FeatureLine.h"
#include "Components/InfoTile.h"
#include "Components/PlainLabel.h"
#include "Layouts.h"
#include "Paint.h"
#include "Palette.h"
#include "Shell/ContentPane.h"

#include <QPainter>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr Type::Style tagline{14, 20, QFont::Medium};

struct Room
{
    int across;
    int down;
    int emblem;
    int underEmblem;
    int aboveFeatures;
    int betweenFeatures;
};

constexpr Room roomy{36, 40, 56, 20, 32, 20};
constexpr Room tight{24, 28, 48, 16, 24, 16};

FeatureLine* feature(const QString& symbol, const QString& title, const QString& text)
{
    return new FeatureLine(symbol, title, text, FeatureLine::Background::dark);
}

QWidget* makeContent(const Room& room, bool isBrief)
{
    auto* column = Layouts::column(0);
    column->setContentsMargins(room.across, room.down, room.across, room.down);
    column->addWidget(
        new Chip(u"checkmark.seal.fill"_s, room.emblem, Chip::Look::onDark), 0, Qt::AlignLeading);
    column->addSpacing(room.underEmblem);
    column->addWidget(new PlainLabel(u"Quorvel"_s, Type::display, Brand::onDarkTitle));
    column->addWidget(new PlainLabel(u"Remote notary desktop workspace"_s, tagline, Brand::onDarkText));
    if (isBrief) {
        column->addStretch();
        return Layouts::holding(column);
    }
    column->addSpacing(12);
    column->addWidget(
        new PlainLabel(u"Book remote notarizations, track sessions, message your notary team, and "
                       "manage your workspace from a polished Mac experience."_s,
            Type::body, Brand::onDarkText));
    column->addSpacing(room.aboveFeatures);
    column->addWidget(feature(u"calendar.badge.plus"_s, u"Guided booking"_s,
        u"Rush or No-Rush sessions with signer details and schedule controls."_s));
    column->addSpacing(room.betweenFeatures);
    column->addWidget(feature(u"doc.text.magnifyingglass"_s, u"Session workspace"_s,
        u"Review status, signers, notes, records, and messages in one place."_s));
    column->addSpacing(room.betweenFeatures);
    column->addWidget(feature(u"menubar.rectangle"_s, u"Menu bar access"_s,
        u"Book, open sessions, and switch workspaces from the top menu."_s));
    column->addSpacing(room.betweenFeatures);
    column->addStretch(1);
    column->addWidget(new InfoTile(u"lock.shield.fill"_s, u"Secure session handling"_s,
        u"You will be returned to sign in when your session ends."_s, InfoTile::Background::dark));
    return Layouts::holding(column);
}

} // namespace

WelcomePanel::WelcomePanel(QWidget* parent) : ScrollPage(makeContent(roomy, false), parent) { }

void WelcomePanel::setLength(Length length)
{
    if (length == std::exchange(length_, length))
        return;
    setWidget(makeContent(length == Length::full ? roomy : tight, length == Length::brief));
    widget()->setAutoFillBackground(false);
}

void WelcomePanel::paintEvent(QPaintEvent*)
{
    const QRect area = viewport()->rect();
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(
        Paint::leadingCorner(area, ContentPane::innerRadius, layoutDirection()), Palette::darkGradient(area));
}
