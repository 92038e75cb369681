#include "FileChooser.h"

#include <QDir>
#include <QFileDialog>
#include <QPointer>
#include <QSettings>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

/// QFileDialog keeps the folders that were visited in a settings file of its own, which it reads when it is
/// made and writes when it is destroyed. Meanwhile that file lies where nothing can be written.
class NothingRemembered
{
public:
    NothingRemembered() { setPath(u"/dev/null"_s); }
    ~NothingRemembered() { setPath(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)); }
    NothingRemembered(const NothingRemembered&) = delete;
    NothingRemembered& operator=(const NothingRemembered&) = delete;

private:
    static void setPath(const QString& path)
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, path);
    }
};

/// Owns the dialog, so that it is made and destroyed with nothing remembered. Made before the dialog, it also
/// goes before it when the widget goes that both belong to.
class Chooser : public QObject
{
public:
    Chooser(QWidget* over, const FileChooser::Texts& texts, const std::function<void(QList<QUrl>)>& chosen)
        : QObject(over)
    {
        const NothingRemembered now;
        dialog_ = new QFileDialog(over, texts.title, QDir::homePath());
        dialog_->setFileMode(QFileDialog::ExistingFiles);
        if (!texts.confirm.isEmpty())
            dialog_->setLabelText(QFileDialog::Accept, texts.confirm);
        // Qt's own dialog, unlike a desktop's, emits filesSelected but not urlsSelected.
        connect(dialog_, &QFileDialog::accepted, this, [this, chosen] { chosen(dialog_->selectedUrls()); });
        connect(dialog_, &QFileDialog::finished, this, &QObject::deleteLater);
    }
    ~Chooser() override
    {
        const NothingRemembered now;
        delete dialog_;
    }

    void open() { dialog_->open(); }

private:
    QPointer<QFileDialog> dialog_;
};

} // namespace

void FileChooser::open(QWidget* over, const Texts& texts, std::function<void(QList<QUrl>)> chosen)
{
    (new Chooser(over, texts, chosen))->open();
}
