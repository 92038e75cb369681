#pragma once

#include <QList>
#include <QProperty>

#include <utility>

/// What a pane does with all of its fields, whatever they hold.
class AnyEditField
{
public:
    /// What stands in the field is not saved.
    virtual bool isEdited() const = 0;
    /// What stands in the field is on its way to the bridge.
    virtual void markSent() = 0;
    /// The bridge has accepted what was sent. What was typed since is an edit again.
    virtual void markSaved() = 0;
    /// Makes the field as empty and as unknown as it was at first.
    virtual void forget() = 0;

protected:
    AnyEditField() = default;
    ~AnyEditField() = default;
    Q_DISABLE_COPY_MOVE(AnyEditField)
};

/// A field of an edit pane: what stands in it, what of that is saved, and what the bridge said last.
template <typename T>
class EditField : public QProperty<T>, public AnyEditField
{
public:
    /// \param pane  the fields of the pane that this one becomes a part of
    explicit EditField(QList<AnyEditField*>& pane) { pane += this; }

    EditField& operator=(const T& value)
    {
        this->setValue(value);
        return *this;
    }

    /// The record has this value at the bridge. A field takes it when it is another than before and no edit
    /// stands in its way.
    /// \param keepsTyped  leaves the field as it is: the value is just how the bridge wrote down what was
    /// saved
    void receive(const T& value, bool keepsTyped)
    {
        const bool isNews = std::exchange(received_, value) != value;
        if (!isNews || keepsTyped)
            return;
        const bool follows = !isEdited();
        saved_ = value;
        if (follows)
            *this = value;
    }

    /// The field and what is known about it belong to somebody who has left.
    void forget() override
    {
        received_ = T();
        saved_ = T();
        sent_ = T();
        *this = T();
    }

    bool isEdited() const override { return this->value() != saved_; }
    void markSent() override { sent_ = this->value(); }
    void markSaved() override { saved_ = sent_; }

private:
    T received_{};
    T saved_{};
    T sent_{};
};
