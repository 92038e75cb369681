#pragma once

#include <QObject>
#include <QProperty>
#include <QScopedValueRollback>

#include <memory>
#include <utility>

/// Keeps a subscription to a property for as long as its parent lives.
template <typename Notifier>
class PropertyWatch : public QObject
{
public:
    template <typename Property, typename Callback>
    PropertyWatch(QObject* owner, Property& property, Callback callback)
        : QObject(owner), notifier_(property.addNotifier(std::move(callback)))
    { }

private:
    Notifier notifier_;
};

/// Runs `apply` with the property's value now and at each change, for as long as `owner` lives. The property
/// may go first.
template <typename Property, typename Apply>
void follow(QObject* owner, Property& property, Apply apply)
{
    apply(property.value());
    auto again = [&property, apply = std::move(apply)]() mutable {
        // A copy: what is applied may change the property.
        apply(std::decay_t<decltype(property.value())>(property.value()));
    };
    using Notifier = decltype(property.addNotifier(again));
    new PropertyWatch<Notifier>(owner, property, std::move(again));
}

/// Keeps a field and a property equal, both ways; the field takes the property's value first. A field is
/// whatever has a `Value`, value(), setValue() and a signal valueChanged(). A value that the field cannot
/// show stays in the property until the person changes the field. The property must outlive it.
template <typename Field, typename T>
void bind(Field* field, QProperty<T>& property)
{
    const auto following = std::make_shared<bool>(false);
    follow(field, property, [field, following](const T& value) {
        const QScopedValueRollback guard(*following, true);
        field->setValue(typename Field::Value(value));
    });
    QObject::connect(field, &Field::valueChanged, field, [field, &property, following] {
        if (!*following)
            property = T(field->value());
    });
}
