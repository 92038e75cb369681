#include "Sessions/SessionPartState.h"

#include "Components/LoadingLine.h"
#include "Components/PlainLabel.h"
#include "Components/QuietButton.h"
#include "Components/StackingRow.h"
#include "Layouts.h"

using namespace Qt::StringLiterals;

static constexpr int besideButton = 12;
static constexpr int betweenLines = 8;

SessionPartState::SessionPartState(const Texts& texts)
    : loading_(new LoadingLine(texts.loading)), empty_(new PlainLabel(texts.empty, Type::body, Brand::steel)),
      missing_(new StackingRow(besideButton))
{
    auto* again = new QuietButton(u"Try Again"_s, u"arrow.clockwise"_s);
    again->setAccessibleName(texts.again);
    connect(again, &Button::clicked, this, &SessionPartState::againRequested);
    missing_->add(new PlainLabel(texts.missing, Type::body, Brand::steel), 1, Qt::AlignVCenter);
    missing_->add(again);
    setLayout(Layouts::column(betweenLines, {loading_, empty_, missing_}));
}

void SessionPartState::show(bool loaded, bool missing, bool empty)
{
    loading_->setVisible(!loaded && !missing);
    empty_->setVisible(loaded && empty);
    missing_->setVisible(missing);
    setVisible(!loaded || missing || empty);
}
