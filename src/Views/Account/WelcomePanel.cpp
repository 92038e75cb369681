#include "Account/WelcomePanel.h"

#include "Components/Chip.h"
#include "Components/FeatureLine.h"
#include "Components/InfoTile.h"
#include "Components/PlainLabel.h"
#include "Layouts.h"
#include "Palette.h"
#include "Spacing.h"

#include <QPainter>
#include <QPainterPath>

using namespace Qt::StringLiterals;

static constexpr int padding = 36;
static constexpr int paddingAbove = 40;
static constexpr int emblem = 56;
static constexpr Type::Style tagline{14, 20, QFont::Medium};

static FeatureLine* feature(const QString& symbol, const QString& title, const QString& text)
{
    return new FeatureLine(symbol, title, text, FeatureLine::Background::dark);
}

WelcomePanel::WelcomePanel(QWidget* parent) : QWidget(parent)
{
    auto* column = Layouts::column(0);
    column->setContentsMargins(padding, paddingAbove, padding, paddingAbove);
    column->addWidget(new Chip(u"checkmark.seal.fill"_s, emblem, Chip::Look::onDark), 0, Qt::AlignLeading);
    column->addSpacing(20);
    column->addWidget(new PlainLabel(u"Quorvel"_s, Type::display, Brand::onDarkTitle));
    column->addWidget(new PlainLabel(u"Remote notary desktop workspace"_s, tagline, Brand::onDarkText));
    column->addSpacing(12);
    column->addWidget(
        new PlainLabel(u"Book remote notarizations, track sessions, message your notary team, and "
                       "manage your workspace from a polished Mac experience."_s,
            Type::body, Brand::onDarkText));
    column->addSpacing(32);
    column->addWidget(feature(u"calendar.badge.plus"_s, u"Guided booking"_s,
        u"Rush or No-Rush sessions with signer details and schedule controls."_s));
    column->addSpacing(20);
    column->addWidget(feature(u"doc.text.magnifyingglass"_s, u"Session workspace"_s,
        u"Review status, signers, notes, records, and messages in one place."_s));
    column->addSpacing(20);
    column->addWidget(feature(u"menubar.rectangle"_s, u"Menu bar access"_s,
        u"Book, open sessions, and switch workspaces from the top menu."_s));
    column->addSpacing(20);
    column->addStretch(1);
    column->addWidget(new InfoTile(u"lock.shield.fill"_s, u"Secure session handling"_s,
        u"You will be returned to sign in when your session ends."_s, InfoTile::Background::dark));
    setLayout(column);
}

void WelcomePanel::paintEvent(QPaintEvent*)
{
    // Follows the round corner of the content behind it.
    QPainterPath shape;
    shape.addRoundedRect(
        QRectF(rect()).adjusted(0, 0, Radius::card, Radius::card), Radius::card, Radius::card);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(shape, Palette::darkGradient(rect()));
}
