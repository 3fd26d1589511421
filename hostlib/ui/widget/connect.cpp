#include "host/mrl_widgets.h"

#include <QMetaMethod>
#include <QObject>

namespace {

// The digits that Qt's SIGNAL and SLOT put in front of a signature.
constexpr char SLOT_CODE = '1';
constexpr char SIGNAL_CODE = '2';

QByteArray signature(const char* text) { return QMetaObject::normalizedSignature(text + 1); }

int methodIndex(const QObject* object, const char* text)
{
    const QMetaObject* meta = object->metaObject();
    return text[0] == SIGNAL_CODE ? meta->indexOfSignal(signature(text)) : meta->indexOfSlot(signature(text));
}

bool isReceiving(const char* text) { return text[0] == SLOT_CODE || text[0] == SIGNAL_CODE; }

QString describe(const QObject* object, const char* text)
{
    return QStringLiteral("%1::%2").arg(QLatin1String(object->metaObject()->className()),
                                        QLatin1String(text + 1));
}

/// @return what is wrong with the connection, an empty text if nothing is
QString connectionFault(const QObject* sender, const char* signal, const QObject* receiver, const char* slot)
{
    if (!sender || !receiver || !signal || !slot) {
        return QStringLiteral("null sender, receiver or signature");
    }
    if (signal[0] != SIGNAL_CODE || methodIndex(sender, signal) < 0) {
        return QStringLiteral("no signal ") + describe(sender, signal);
    }
    if (!isReceiving(slot) || methodIndex(receiver, slot) < 0) {
        return QStringLiteral("no slot ") + describe(receiver, slot);
    }
    if (!QMetaObject::checkConnectArgs(signature(signal), signature(slot))) {
        return QStringLiteral("the arguments of %1 do not fit %2")
            .arg(describe(sender, signal), describe(receiver, slot));
    }
    return QString();
}

} // namespace

bool mrl_connect(const QObject* sender, const char* signal, const QObject* receiver, const char* slot,
                 Qt::ConnectionType type)
{
    const QString fault = connectionFault(sender, signal, receiver, slot);
    if (fault.isEmpty()) {
        const QByteArray from = SIGNAL_CODE + signature(signal);
        const QByteArray to = slot[0] + signature(slot);
        return QObject::connect(sender, from.constData(), receiver, to.constData(), type);
    }
#ifdef NDEBUG
    qCritical("mrl_connect: %s", qPrintable(fault));
#else
    qFatal("mrl_connect: %s", qPrintable(fault));
#endif
    return false;
}
