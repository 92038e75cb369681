#include "SegmentedControl.h"

#include "Accessibility.h"
#include "FocusRing.h"
#include "Paint.h"
#include "Palette.h"
#include "PlainText.h"
#include "Spacing.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPainter>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int inset = 2;
constexpr int edge = 1;
constexpr int padding = 16;

class Segment : public QRadioButton
{
public:
    Segment(const QString& text, QWidget* control) : title_(text)
    {
        auto label = text;
        setText(label.replace(u'&', u"&&"_s));
        setAccessibleName(text);
        setAttribute(Qt::WA_Hover);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        FocusRing::attach(this, Radius::control, control);
    }

    QSize sizeHint() const override
    {
        return {PlainText::width(title_, Type::strong) + 2 * padding, Height::control() - 2 * (inset + edge)};
    }

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }

    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        constexpr int radius = Radius::control - inset;
        auto tone = Brand::steel;
        if (!isEnabled()) {
            tone = Brand::muted;
            if (isChecked())
                Paint::roundedRect(painter, rect(), radius, Palette::color(Brand::line));
        } else if (isChecked()) {
            tone = Brand::navy;
            Paint::roundedRect(
                painter, rect(), radius, Palette::color(Brand::paleBlue), Palette::color(Brand::blue));
        } else if (underMouse()) {
            tone = Brand::ink;
            Paint::roundedRect(painter, rect(), radius, Palette::color(Brand::softBlue));
        }
        PlainText::draw(painter, rect(), title_, isChecked() ? Type::strong : Type::label,
            Palette::color(tone), Qt::AlignCenter);
    }

private:
    QString title_;
};

} // namespace

SegmentedControl::SegmentedControl(const QString& label, const QList<Option>& options, QWidget* parent)
    : QWidget(parent), group_(new QButtonGroup(this)), options_(options)
{
    Accessibility::setRole(this, QAccessible::Grouping);
    setAccessibleName(label);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* layout = new QHBoxLayout(this);
    constexpr int margin = inset + edge;
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(0);
    for (int id = 0; id < options.size(); ++id) {
        auto* segment = new Segment(options[id].text, this);
        group_->addButton(segment, id);
        layout->addWidget(segment, 1);
    }
    connect(group_, &QButtonGroup::idToggled, this, [this](int, bool checked) {
        if (checked)
            emit valueChanged(value());
    });
}

QString SegmentedControl::value() const
{
    const int id = group_->checkedId();
    return id < 0 ? QString() : options_[id].value;
}

void SegmentedControl::setValue(const QString& value)
{
    for (int id = 0; id < options_.size(); ++id) {
        if (options_[id].value == value)
            group_->button(id)->setChecked(true);
    }
}

void SegmentedControl::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    Paint::roundedRect(painter, rect(), Radius::control, Palette::color(Brand::panel),
        Palette::color(isEnabled() ? Brand::fieldBorder : Brand::line));
}
