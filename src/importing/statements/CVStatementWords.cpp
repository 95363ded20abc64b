#include "importing/statements/CVStatementWords.h"

#include "importing/statements/CVHeadingWords.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <array>
#include <vector>

namespace {

/// Letters that are no letter with an accent.
QString plainLetter(QChar letter) {
    switch (letter.unicode()) {
    case u'\u00df':
        return QStringLiteral("ss");
    case u'\u0142':
        return QStringLiteral("l");
    case u'\u00f8':
        return QStringLiteral("o");
    case u'\u00e6':
        return QStringLiteral("ae");
    case u'\u0111':
        return QStringLiteral("d");
    case u'\u0131':
        return QStringLiteral("i");
    default:
        return letter;
    }
}

/// Whether a word begins within a word: "dateOp", "RunningBalance".
bool isCamelStart(QStringView text, qsizetype at) {
    return at > 0 && text[at].isUpper() && text[at - 1].isLower();
}

constexpr qsizetype kLongestName = 60;

constexpr std::array kOutWords{
    u"χ",           u"χρεωση",     u"t",        u"terheles", u"d",       u"dr",        u"db",       u"deb",
    u"debit",       u"debet",      u"debito",   u"debe",     u"debited", u"s",         u"soll",     u"belastung",
    u"lastschrift", u"ausgang",    u"ausgabe",  u"af",       u"out",     u"money out", u"outgoing", u"outflow",
    u"payment out", u"withdrawal", u"expense",  u"spend",    u"uscita",  u"uscite",    u"dare",     u"addebito",
    u"cargo",       u"gasto",      u"egreso",   u"saida",    u"despesa", u"depense",   u"wn",       u"obciazenie",
    u"wydatek",     u"vydaj",      u"vydej",    u"na vrub",  u"ud",      u"ut",        u"uttag",    u"rashod",
    u"isplata",     u"zaduzenje",  u"terheles", u"kiadas",   u"borc",    u"gider",     u"расход",   u"списание",
    u"дебет",       u"支出",       u"出金",     u"支",       u"出",      u"借",        u"출금",     u"debitering"};

constexpr std::array kInWords{
    u"π",        u"πιστωση", u"j",       u"c",          u"cr",         u"cd",        u"cred",       u"credit",
    u"kredit",   u"credito", u"haber",   u"credited",   u"h",          u"haben",     u"gutschrift", u"eingang",
    u"einnahme", u"bij",     u"in",      u"money in",   u"incoming",   u"inflow",    u"payment in", u"deposit",
    u"income",   u"receive", u"entrata", u"entrate",    u"avere",      u"accredito", u"abono",      u"ingreso",
    u"entrada",  u"receita", u"recette", u"ma",         u"uznanie",    u"wplyw",     u"prijem",     u"ve prospech",
    u"k",        u"ind",     u"inn",     u"insattning", u"primitak",   u"uplata",    u"odobrenje",  u"jovairas",
    u"bevetel",  u"alacak",  u"gelir",   u"приход",     u"зачисление", u"кредит",    u"收入",       u"入金",
    u"收",       u"入",      u"贷",      u"입금",       u"kreditering"};

/// Beginnings of what stands in place of a payee in rows of balances and sums.
constexpr std::array kBalanceRows{
    u"sakuma atlikums",
    u"beigu atlikums",
    u"apgrozijums",
    u"likutis pradziai",
    u"likutis pabaigai",
    u"apyvarta",
    u"algsaldo",
    u"loppsaldo",
    u"kaive",
    u"pradinis likutis",
    u"galutinis likutis",
    u"opening balance",
    u"closing balance",
    u"starting balance",
    u"ending balance",
    u"beginning balance",
    u"balance brought forward",
    u"balance carried forward",
    u"brought forward",
    u"carried forward",
    u"balance forward",
    u"previous balance",

    u"final balance",
    u"initial balance",
    u"ledger balance",
    u"available balance",
    u"statement balance",
    u"balance at",
    u"balance on",
    u"balance as of",
    u"turnover",
    u"anfangssaldo",
    u"anfangsbestand",
    u"endsaldo",
    u"alter saldo",
    u"neuer saldo",
    u"saldovortrag",
    u"saldo vortrag",
    u"kontostand",
    u"alter kontostand",
    u"neuer kontostand",
    u"schlusssaldo",
    u"zwischensaldo",
    u"saldo anterior",
    u"saldo inicial",
    u"saldo final",
    u"saldo do dia",
    u"saldo atual",
    u"saldo actual",
    u"saldo disponivel",
    u"saldo iniziale",
    u"saldo finale",
    u"saldo contabile",
    u"saldo precedente",
    u"saldo poczatkowe",
    u"saldo koncowe",
    u"saldo",
    u"solde",
    u"ancien solde",
    u"nouveau solde",
    u"solde precedent",
    u"solde initial",
    u"solde final",
    u"beginsaldo",
    u"eindsaldo",
    u"vorig saldo",
    u"nieuw saldo",
    u"ingaende saldo",
    u"utgaende saldo",
    u"inngaende saldo",
    u"startsaldo",
    u"slutsaldo",
    u"alkusaldo",
    u"loppusaldo",
    u"pocatecni zustatek",
    u"konecny zustatek",
    u"zaciatocny zostatok",
    u"konecny zostatok",
    u"nyito egyenleg",
    u"zaro egyenleg",
    u"nyitoegyenleg",
    u"zaroegyenleg",
    u"sold initial",
    u"sold final",
    u"pocetno stanje",
    u"zavrsno stanje",
    u"devreden bakiye",
    u"входящий остаток",
    u"исходящий остаток",
    u"前期繰越",
    u"前月繰越",
    u"繰越",
    u"残高",
    u"期初余额",
    u"期末余额",
};

/// As above, but payees are called so too: only a row without a day is a sum.
constexpr std::array kSumRows{u"total",    u"totals",      u"subtotal", u"sub total", u"grand total",
                              u"summe",    u"gesamtsumme", u"gesamt",   u"total des", u"totale",
                              u"totales",  u"totaal",      u"suma",     u"razem",     u"celkem",
                              u"osszesen", u"yhteensa",    u"итого",    u"合计",      u"合計"};

constexpr std::array kFailures{u"declined",  u"failed",    u"reverted",    u"cancelled", u"canceled", u"rejected",
                               u"denied",    u"abgelehnt", u"abgebrochen", u"refuse",    u"refusee",  u"annule",
                               u"rechazado", u"rifiutato", u"geweigerd",   u"avvisad",   u"expired",  u"voided"};

/// Words within texts that let expect money in or money out.
constexpr std::array kWordsOfIncome{u"thank you",
                                    u"payment received",
                                    u"payments and credits",
                                    u"autopay payment",
                                    u"salary",
                                    u"payroll",
                                    u"wages",
                                    u"refund",
                                    u"cashback",
                                    u"deposit",
                                    u"direct dep",
                                    u"lohn",
                                    u"gehalt",
                                    u"gutschrift",
                                    u"erstattung",
                                    u"salaire",
                                    u"remboursement",
                                    u"nomina",
                                    u"abono",
                                    u"stipendio",
                                    u"accredito",
                                    u"rimborso",
                                    u"salario",
                                    u"loon",
                                    u"salaris",
                                    u"lon",
                                    u"palkka",
                                    u"wynagrodzenie",
                                    u"wyplata",
                                    u"mzda",
                                    u"munkaber",
                                    u"maas",
                                    u"зарплата",
                                    u"給与",
                                    u"給料",
                                    u"工资",
                                    u"급여"};
constexpr std::array kWordsOfExpense{
    u"purchase",       u"sale",         u"pos",    u"atm",          u"withdrawal",    u"card payment", u"einkauf",
    u"kartenzahlung",  u"lastschrift",  u"miete",  u"dauerauftrag", u"achat",         u"retrait",      u"prelevement",
    u"loyer",          u"compra",       u"cajero", u"alquiler",     u"pagamento pos", u"prelievo",     u"affitto",
    u"betaalautomaat", u"geldautomaat", u"huur",   u"kortkop",      u"uttag",         u"hyra",         u"korttiosto",
    u"vuokra",         u"zakup",        u"czynsz", u"nakup",        u"najem",         u"vasarlas",     u"kira",
    u"rent",           u"покупка"};

template <typename Words>
QSet<QString> setOfWords(const Words& words) {
    QSet<QString> set;
    for (const auto* const word : words)
        set.insert(QString::fromUtf16(word));
    return set;
}

/// The words with blanks around them.
template <typename Words>
std::vector<QString> paddedWords(const Words& words) {
    std::vector<QString> padded;
    padded.reserve(std::size(words));
    for (const auto* const word : words)
        padded.push_back(u' ' + QString::fromUtf16(word) + u' ');
    return padded;
}

bool isBeyondLetters(QChar character) {
    return character.isDigit() || character == u' ';
}

} // namespace

QString CVPlainWords(const QString& text) {
    QString plain;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (isCamelStart(text, at))
            plain += u' ';
        plain += text.at(at).toLower();
    }
    QString words;
    for (const QChar character : plain.normalized(QString::NormalizationForm_D)) {
        if (character.isLetterOrNumber())
            words += plainLetter(character);
        else if (!character.isMark() || character.script() > QChar::Script_Cyrillic)
            words += character.isMark() ? character : QChar(u' ');
    }
    return words.normalized(QString::NormalizationForm_C).simplified();
}

int CVMarkerOf(QStringView text) {
    static const QSet<QString> out = setOfWords(kOutWords);
    static const QSet<QString> in = setOfWords(kInWords);
    constexpr qsizetype kLongestMarker = 24;
    const QStringView word = text.trimmed();
    if (word.isEmpty() || word.size() > kLongestMarker)
        return 0;
    if (word == u"-" || word == u"\u2212")
        return -1;
    if (word == u"+")
        return 1;
    if (std::any_of(word.begin(), word.end(), [](QChar c) { return c.isDigit(); }))
        return 0;
    const QString plain = CVPlainWords(word.toString());
    return in.contains(plain) ? 1 : out.contains(plain) ? -1 : 0;
}

bool CVNamesBalanceRow(const QString& text) {
    static const QSet<QString> names = setOfWords(kBalanceRows);
    const bool isWord = std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
    if (text.size() > kLongestName || !isWord)
        return false;
    QString plain = CVPlainWords(text);
    if (names.contains(plain))
        return true;
    // "Saldo 01 03 2024", "Opening Balance Brought Forward"
    while (!plain.isEmpty() && isBeyondLetters(plain.back()))
        plain.chop(1);
    return names.contains(plain) || plain.startsWith(u"opening balance") || plain.startsWith(u"closing balance") ||
           plain.startsWith(u"balance at") || plain.startsWith(u"balance on") || plain.startsWith(u"balance as of");
}

bool CVNamesSumRow(const QString& text) {
    static const QSet<QString> names = setOfWords(kSumRows);
    const QString plain = CVPlainWords(text);
    return CVNamesBalanceRow(text) || names.contains(plain) ||
           (plain.size() < kLongestName && std::any_of(names.begin(), names.end(), [&plain](const QString& name) {
                return plain.startsWith(name + u' ');
            }));
}

bool CVMayNameBalanceRow(const QString& text) {
    constexpr qsizetype kMostBlanks = 4;
    return text.count(u' ') <= kMostBlanks && CVHeadingOf(text).role == CVColumnRole::Balance;
}

int CVExpectedSign(const QString& text) {
    static const std::vector<QString> income = paddedWords(kWordsOfIncome);
    static const std::vector<QString> expense = paddedWords(kWordsOfExpense);
    const QString padded = u' ' + CVPlainWords(text) + u' ';
    const auto isHeld = [&padded](const QString& word) { return padded.contains(word); };
    const bool isIn = std::any_of(income.begin(), income.end(), isHeld);
    const bool isOut = std::any_of(expense.begin(), expense.end(), isHeld);
    return (isIn ? 1 : 0) - (isOut ? 1 : 0);
}

bool CVNamesFailure(const QString& text) {
    static const QSet<QString> names = setOfWords(kFailures);
    return names.contains(CVPlainWords(text));
}
