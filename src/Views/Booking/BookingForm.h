#pragma once

#include "Booking/BookingSections.h"

#include <QList>
#include <QUrl>
#include <QWidget>

class FeePanel;
class QScrollArea;
class QVBoxLayout;
class SignersSection;
class Surface;
class UploadSection;

/// The request form: its sections in a column, and beside them the fee and the number of signatures, which
/// stay in view while the column scrolls. On a narrow page these stand among the sections.
class BookingForm : public QWidget
{
    Q_OBJECT

public:
    /// On any page.
    static constexpr int widest = 720 + 20 + 320;

    /// \param page  in which the form scrolls
    BookingForm(BookRemoteNotaryModel& model, QScrollArea& page, QWidget* parent = nullptr);

    void arrange(int pageWidth);
    /// On the page as last arranged for.
    int widestNow() const;
    void focusFirstField();
    /// Leads the person to the field of a fault.
    void leadTo(const BookRemoteNotaryModel::Fault& fault);

signals:
    void filesWanted();
    void filesDropped(const QList<QUrl>& files);

protected:
    bool event(QEvent* event) override;

private:
    void addSections();
    void addSection(Surface* section);
    void addSubmission();
    void placeFee();
    void setLocked(bool locked);
    QWidget* fieldOf(const BookRemoteNotaryModel::Fault& fault) const;

    BookRemoteNotaryModel& model_;
    QScrollArea& page_;
    QVBoxLayout* column_;
    QList<Surface*> sections_;
    BookingSections::Fields fields_; ///< other than those of the signers
    SignersSection* signers_ = nullptr;
    UploadSection* uploads_ = nullptr;
    FeePanel* fee_ = nullptr;
    int placeOfFee_ = 0; ///< in the column
    int rail_ = 0; ///< width of what stands beside the column, in pixels; 0 on a narrow page
};
