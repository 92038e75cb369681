#pragma once

#include "Screen/ScreenModel.h"

#include <functional>

/// A screen that shows what a load brings. Loads may overlap: each stores its results when it is complete,
/// unless a newer one has done so before. A failed one leaves what was there as it was. One that can no
/// longer bring anything, because the screen has been left or for another reason, ends its requests.
class LoadingModel : public ScreenModel
{
    Q_OBJECT

public:
    explicit LoadingModel(const ScreenContext& context) : ScreenModel(context), loads_(epoch()) { }

    QProperty<bool> isLoading{false};

    QCoro::Task<> load();

signals:
    /// The results of a load have been stored.
    void loaded();

protected:
    /// Puts the results of one load in place of those of another.
    using Store = std::function<void()>;

    /// Makes the requests of a load and prepares what they bring.
    /// \param client  makes requests that end with the load
    /// \throws AppError of the first that failed
    virtual QCoro::Task<Store> fetch(APIClient client, QString idToken) = 0;
    /// Of the alert when a load failed.
    virtual QString loadFailureTitle() const = 0;

    /// Something has changed, so that what the loads under way bring may be wrong: they count no longer.
    void outdateLoads() { loads_.outdate(); }
    /// Loads what has changed.
    void loadChange();
    void entered() override { isLeft_ = false; }
    void left() override;

private:
    Turns loads_;
    bool isLeft_ = false;
};
