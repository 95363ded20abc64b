#include "lock/CVLockHolder.h"

#include <QCryptographicHash>
#include <QFile>
#include <QList>
#include <QRandomGenerator>
#include <QStringDecoder>
#include <QSysInfo>

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>

namespace {

constexpr const char* kFirstLine = "Corvella lock";
constexpr qsizetype kLongestText = 80;
constexpr qsizetype kLongestLock = 4096;
constexpr qsizetype kMachineLetters = 16;
constexpr int kTokenWords = 4;
constexpr int kNumberBase = 16;
constexpr int kTokenWordLetters = 8;
constexpr std::chrono::minutes kStaleAfter(5);
/// The places of the state and of the start in /proc/PID/stat, behind the name of the program.
constexpr qsizetype kStateField = 0;
constexpr qsizetype kStartedField = 19;

/// A text of a lock is shown to the user, and whoever writes to the folder may have written it.
QString cleaned(QString text) {
    text.removeIf([](QChar letter) { return !letter.isPrint(); });
    return text.trimmed().left(kLongestText);
}

QString userName() {
    // The result belongs to the library; no other thread of this program asks.
    const passwd* const entry = ::getpwuid(::geteuid()); // NOLINT(concurrency-mt-unsafe)
    return entry ? QString::fromLocal8Bit(entry->pw_name) : QString::number(::geteuid());
}

QString randomToken() {
    QString token;
    for (int i = 0; i < kTokenWords; ++i)
        token += QString::number(QRandomGenerator::system()->generate(), kNumberBase)
                     .rightJustified(kTokenWordLetters, u'0');
    return token;
}

QString machineDigest() {
    const QByteArray id = "Corvella lock " + QSysInfo::machineUniqueId();
    return QString::fromLatin1(QCryptographicHash::hash(id, QCryptographicHash::Sha256).toHex().first(kMachineLetters));
}

/// The fields of /proc/PID/stat behind the name of the program, which may hold blanks and brackets; empty when there
/// are none.
QList<QByteArray> fieldsOfProcess(qint64 process) {
    QFile file(QStringLiteral("/proc/%1/stat").arg(process));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return {};
    const QByteArray line = file.readAll();
    const qsizetype end = line.lastIndexOf(')');
    return end < 0 ? QList<QByteArray>() : line.mid(end + 1).simplified().split(' ');
}

struct TextField {
    const char* name;
    QString CVLockHolder::*text;
};

constexpr std::array<TextField, 6> kTexts{{{"host", &CVLockHolder::host},
                                           {"user", &CVLockHolder::user},
                                           {"machine", &CVLockHolder::machine},
                                           {"boot", &CVLockHolder::boot},
                                           {"processes", &CVLockHolder::processes},
                                           {"token", &CVLockHolder::token}}};

/// Takes one line "NAME VALUE".
void take(CVLockHolder& holder, const QString& line) {
    const QString name = line.section(u' ', 0, 0);
    const QString value = cleaned(line.section(u' ', 1));
    if (name == QLatin1String("process"))
        holder.process = value.toLongLong();
    else if (name == QLatin1String("started"))
        holder.started = value.toULongLong();
    for (const TextField& field : kTexts) {
        if (name == QLatin1String(field.name))
            holder.*field.text = value;
    }
}

} // namespace

CVLockHolder CVLockHolder::ofThisProcess() {
    CVLockHolder self;
    self.host = cleaned(QSysInfo::machineHostName());
    self.user = cleaned(userName());
    self.machine = machineDigest();
    self.boot = cleaned(QString::fromLatin1(QSysInfo::bootUniqueId()));
    self.process = ::getpid();
    self.started = fieldsOfProcess(self.process).value(kStartedField).toULongLong();
    self.processes = cleaned(QFile::symLinkTarget(QStringLiteral("/proc/self/ns/pid")).section(u'/', -1));
    self.token = randomToken();
    return self;
}

std::optional<CVLockHolder> CVLockHolder::parse(const QByteArray& bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = bytes.size() > kLongestLock ? QString() : QString(decoder(bytes));
    QStringList lines = text.split(u'\n');
    // The last line ends too, so that a lock that was written in part is none.
    if (decoder.hasError() || lines.takeLast() != QString() || lines.isEmpty() ||
        lines.takeFirst() != QLatin1String(kFirstLine))
        return std::nullopt;
    CVLockHolder holder;
    for (const QString& line : lines)
        take(holder, line);
    // The token stands last.
    const bool isWhole = !holder.host.isEmpty() && holder.process > 0 && !holder.token.isEmpty();
    return isWhole ? std::optional(holder) : std::nullopt;
}

QByteArray CVLockHolder::render() const {
    QString text = QLatin1String(kFirstLine) + QStringLiteral("\nprocess %1\nstarted %2\n").arg(process).arg(started);
    for (const TextField& field : kTexts)
        text += QLatin1String(field.name) + u' ' + this->*field.text + u'\n';
    return text.toUtf8();
}

bool CVLockHolder::isOnHostOf(const CVLockHolder& other) const {
    return host == other.host && machine == other.machine;
}

CVProcessState CVLookAtProcess(qint64 process, quint64 started) {
    // A process of another user may be hidden in /proc, but is not denied.
    if (process <= 0 || (::kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH))
        return CVProcessState::Gone;
    const QList<QByteArray> fields = fieldsOfProcess(process);
    if (fields.size() <= kStartedField || started == 0)
        return CVProcessState::Unknown;
    const bool hasEnded = fields[kStateField] == "Z" || fields[kStateField] == "X";
    return !hasEnded && fields[kStartedField].toULongLong() == started ? CVProcessState::Lives : CVProcessState::Gone;
}

CVLockState CVJudgeLock(const std::optional<CVLockHolder>& holder, const CVLockHolder& self, CVProcessState process,
                        std::optional<std::chrono::seconds> age) {
    if (holder && holder->token == self.token)
        return CVLockState::Own;
    if (holder && holder->isOnHostOf(self) && !holder->boot.isEmpty() && !self.boot.isEmpty()) {
        if (holder->boot != self.boot)
            return CVLockState::Dead;
        if (holder->processes == self.processes && process != CVProcessState::Unknown)
            return process == CVProcessState::Gone ? CVLockState::Dead : CVLockState::Alive;
    }
    // A sign of life of the future says nothing: somebody's clock is wrong.
    if (!age || *age < -kStaleAfter)
        return CVLockState::Unknown;
    if (*age > kStaleAfter)
        return CVLockState::Stale;
    return holder ? CVLockState::Alive : CVLockState::Unknown;
}
