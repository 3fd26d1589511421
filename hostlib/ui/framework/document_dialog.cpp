#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QShortcut>

#include <exception>
#include <new>

#include "host/mrl_framework.h"
#include "hostlib/data/cdb/project.h"
#include "hostlib/ui/framework/failure_text.h"

namespace cdb = mrl::cdb;

struct MRL_H_Dialog::Private
{
    MRL_H_PluginParameter* parameter = nullptr; ///< not owned
    QRect place;
    bool withHelp = false;
    bool accepting = false;
    bool accepted = false;
    cdb::Result loadFailure; ///< a read error since the dialog was built, which therefore shows only a part

    int database() const { return parameter && parameter->document ? parameter->document->index() : -1; }
};

namespace {

/// Runs the saving. An exception counts as a failure, since none can pass through Qt's event loop.
template <class Save>
cdb::Result guarded(Save save)
{
    try {
        save();
    } catch (const std::bad_alloc&) {
        return {cdb::Code::OutOfMemory, {}};
    } catch (const std::exception& error) {
        return {cdb::Code::InputOutput, error.what()};
    } catch (...) {
        return {cdb::Code::InputOutput, "unknown error"};
    }
    return {};
}

} // namespace

MRL_H_Dialog::MRL_H_Dialog(MRL_H_PluginParameter* parameter, const QString& name, const QString& group,
                           bool help, bool modeless, const QRect& place)
    : MRL_QT_Dialog(parameter ? parameter->parentWidget : nullptr), d(std::make_unique<Private>())
{
    d->parameter = parameter;
    d->withHelp = help;
    d->place = place;
    setObjectName(name);
    setGeometryKey(group, name);
    setModal(!modeless);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    cdb::clearStickyError(d->database());
}

MRL_H_Dialog::~MRL_H_Dialog() = default;

MRL_H_PluginParameter* MRL_H_Dialog::parameter() const { return d->parameter; }

int MRL_H_Dialog::initDialog()
{
    auto* layout = new MRL_QT_VBoxLayout(this);
    const int result = createContents(layout);
    layout->addLayout(makeButtons());
    if (d->place.x() >= 0 && d->place.y() >= 0) {
        setGeometry(d->place);
    }
    initContents();
    return result;
}

QLayout* MRL_H_Dialog::makeButtons()
{
    auto row = std::make_unique<MRL_QT_HBoxLayout>();
    if (d->withHelp) {
        auto* help = new MRL_QT_PushButton(tr("Help"), this, "button_help");
        help->setToolTip(tr("Explains this window (F1)"));
        help->setAutoDefault(false);
        connect(help, &QPushButton::clicked, this, [this] { showHelp(); });
        row->addWidget(help);
    }
    auto* buttons = new MRL_QT_Ok(this, 3, "buttons");
    connect(buttons->cmdOk(), &QPushButton::clicked, this, &MRL_H_Dialog::accept);
    connect(buttons->cmdCancel(), &QPushButton::clicked, this, &MRL_H_Dialog::reject);
    // A table that has the focus keeps Return and Tab to itself; these keys leave it without a mouse.
    for (const char* keys : {"Ctrl+Return", "Ctrl+Enter"}) {
        auto* shortcut = new QShortcut(QKeySequence(QLatin1String(keys)), this);
        connect(shortcut, &QShortcut::activated, buttons->cmdOk(), [ok = buttons->cmdOk()] {
            ok->setFocus(); // commits what is being edited
            ok->click();
        });
    }
    auto* next = new QShortcut(QKeySequence(Qt::Key_F6), this);
    connect(next, &QShortcut::activated, this, [this] { focusNextPrevChild(true); });
    buttons->cmdOk()->setToolTip(tr("Saves and closes (Ctrl+Enter)"));
    row->addWidget(buttons, 1);
    return row.release(); // the caller's layout takes it over
}

void MRL_H_Dialog::accept()
{
    // A second Enter must not save again, neither while a message of the first one waits nor after it.
    if (d->accepting || d->accepted) {
        return;
    }
    const QScopedValueRollback<bool> guard(d->accepting, true);
    if (!checkContents() || !saveInOneTransaction()) {
        return;
    }
    d->accepted = true;
    done(Accepted);
}

bool MRL_H_Dialog::saveInOneTransaction()
{
    const int db = d->database();
    if (d->loadFailure) {
        d->loadFailure = cdb::stickyError(db);
    }
    if (!d->loadFailure) {
        tellNotSaved(tr("A part of the project could not be read, and saving would delete it."),
                     mrl::ui::failureText(d->loadFailure));
        return false;
    }
    const auto failure = [&]() -> cdb::Result {
        cdb::Transaction transaction(db, cdb::Pausable::Yes);
        if (auto result = transaction.state(); !result) {
            return result;
        }
        if (auto result = guarded([this] { saveContents(); }); !result) {
            return result;
        }
        // Whatever could not be read meanwhile is missing in what was written.
        if (auto result = cdb::stickyError(db); !result) {
            return result;
        }
        return transaction.commit();
    }();
    if (failure) {
        return true;
    }
    // This one has been rolled back; the next attempt is judged by itself.
    cdb::clearStickyError(db);
    tellNotSaved(tr("Saving failed."), mrl::ui::failureText(failure));
    return false;
}

void MRL_H_Dialog::tellNotSaved(const QString& what, const QString& reason)
{
    const QString text =
        tr("%1 The project is as it was before, and your input is still here.\n\n%2").arg(what, reason);
    MRL_QT_MessageBox::critical(this, tr("Not saved"), text);
}

void MRL_H_Dialog::reject()
{
    if (d->accepting) {
        return;
    }
    noOpHook();
    done(Rejected);
}

void MRL_H_Dialog::showEvent(QShowEvent* event)
{
    d->accepted = false;
    MRL_QT_Dialog::showEvent(event);
}

void MRL_H_Dialog::keyPressEvent(QKeyEvent* event)
{
    if (d->withHelp && event->matches(QKeySequence::HelpContents)) {
        showHelp();
        event->accept();
        return;
    }
    MRL_QT_Dialog::keyPressEvent(event);
}
