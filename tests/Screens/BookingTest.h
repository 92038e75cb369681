#pragma once

#include "Booking/BookRemoteNotaryModel.h"
#include "Launch.h"
#include "ScreenTest.h"

#include <QTemporaryDir>

/// A booking form of a signed-in client, and the files that can be attached to it.
class BookingTest : public ScreenTest
{
protected:
    BookingTest();

    /// Types a request that passes every check.
    void fillIn();
    void submit();
    /// Makes a file in a folder of the test's own and attaches it.
    void attach(const QString& name, const QByteArray& content = "content");
    QString pathOf(const QString& name) const { return folder.filePath(name); }
    QList<QString> attachedNames() const;

    QTemporaryDir folder;
    std::shared_ptr<BookRemoteNotaryModel> model;
};
