#include "importing/statements/CVHeadingWords.h"

#include "importing/statements/CVStatementWords.h"

#include <QHash>
#include <QStringList>

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <vector>

namespace {

/// Headings with one meaning, with bars between them.
struct HeadingGroup {
    CVColumnRole role;
    int rank;
    const char16_t* headings;
};

/// In this order: where a heading holds words of several groups, the first group decides.
constexpr std::array<HeadingGroup, 20> kHeadingGroups{{
    {CVColumnRole::Day, 1,
     u"date time|datetime|date and time|datum uhrzeit|datum und uhrzeit|timestamp|transaction date time|"
     u"datum a cas|data e ora|fecha y hora|日時|交易时间|交易日時"},
    {CVColumnRole::Ignored, 0,
     u"exchange rate|fx rate|rate|wechselkurs|umrechnungskurs|kurs|devisenkurs|koers|wisselkoers|taux|"
     u"taux de change|tasso|tipo de cambio|valutakurs|kurz|arfolyam|original amount|originalbetrag|"
     u"ursprungsbetrag|original currency|originalwahrung|originalwaehrung|originalni castka|puvodni castka|"
     u"puvodna suma|fremdwahrung|fremdwaehrung|fremdwahrungsbetrag|betrag in fremdwahrung|foreign amount|"
     u"foreign currency|montant en devise|montant devise|devise d origine|montant d origine|"
     u"importe original|importo originale|importo in divisa|valuta originale|oprindeligt belob|"
     u"utlandsk valuta|utlandskt belopp|valor em moeda estrangeira|valor moeda|kwota w walucie|"
     u"kwota oryginalna|eredeti osszeg|oorspronkelijk bedrag|bedrag vreemde valuta|transfer amount|"
     u"compensation amount|auslagenersatz|local amount|merchant amount|instructed amount|initial balance|"
     u"beginning balance|opening balance|starting balance|"
     u"disponivel|disponibile|disponible|verfugbar|year to date|statement period|initial date|final date|"
     u"due date|export date|posting key|income entries|expenses entries|quantity|price|shares|symbol|"
     u"cheque number|check number|check or slip|number of|tax|ust|mwst|tva|iva|vat|tip|discount|points|"
     u"bonus|miles|limit"},
    {CVColumnRole::Currency, 0,
     u"amount currency|balance currency|billing currency|account currency|transaction currency|mena uctu|"
     u"waluta rachunku|currency|currency code|wahrung|waehrung|devise|moneda|divisa|munt|valuta kod|waluta|"
     u"mena|penznem|deviza|para birimi|doviz|валюта|币别|货币|币种|通貨|통화|νομισμα|moeda|valiuta|valuuta|ccy"},
    {CVColumnRole::OtherDay, 0,
     u"value date|value dt|valuta date|date value|valutadatum|valutadag|valuteringsdatum|valuta datum|valuta dato|"
     u"valdatum|wertstellung|wertstellungsdatum|wertstellungstag|wert|date valeur|date de valeur|date val|"
     u"fecha valor|fecha de valor|f valor|data valuta|data de valor|data valor|rentedatum|rentdatum|"
     u"valutadato|valuteringsdag|started date|started|started on|started at|start date|begonnen|date started|"
     u"authorised|authorized|authorisation date|authorization date|initiated|date initiated|kaufdatum|purchase date|"
     u"date of purchase|date d achat|fecha de compra|data acquisto|data da compra|aankoopdatum|kopdatum|belegdatum|"
     u"settlement date|effective date|datum verrekening|data waluty|"
     u"datum valuty|datum valute|ertek nap|erteknap|ertek datuma|arvopaiva|vaartuspaev|data valutei|"
     u"дата валютирования|起息日|起算日|交割日|rentedag"},
    {CVColumnRole::Day, 0,
     u"posted|post|posting|posting day|booking day|completed|completed on|completed at|completed day|date booked|"
     u"booking|finished|gebucht|verbucht|abgeschlossen|comptabilisee|comptabilise|contabilizado|contabilizada|"
     u"contabilizzata|contabilizzato|bokforing|bogforing|geboekt|zaksiegowano|ksiegowanie|zauctovano|zuctovane|"
     u"posting date|post dt|tran date|txn date|transaction dt|posted date|post date|date posted|posted on|booking "
     u"date|booked date|booked on|"
     u"book date|booked|buchungstag|buchungsdatum|buchung|buchungszeit|verbuchungsdatum|gebucht am|"
     u"date operation|date d operation|date de l operation|date op|date comptable|date de comptabilisation|"
     u"date de traitement|fecha contable|fecha operacion|fecha de operacion|fecha de la operacion|"
     u"f contable|f operacion|data contabile|data operazione|data registrazione|data lancamento|"
     u"data do lancamento|data do movimento|data mov|data movimento|data operacao|data da operacao|"
     u"boekdatum|boekingsdatum|uitvoeringsdatum|bogforingsdag|bogforingsdato|bogfort|bokforingsdag|"
     u"bokforingsdatum|bokforingsdato|bokfort|bokfort dato|reskontradatum|datum zauctovani|"
     u"datum zuctovania|datum odepsani|data ksiegowania|data operacji|konyveles datuma|konyvelesi datum|"
     u"konyveles napja|datum knjizenja|datum knjizbe|datum izvrsenja|kirjauspaiva|completed date|"
     u"date completed|data inregistrarii|data tranzactiei|дата операции|дата проводки|дата проведения|記帳日|"
     u"记账日期|记账日|交易日期|取引日|お取引日|年月日|거래일|거래일자|거래일시"},
    {CVColumnRole::Day, 1,
     u"date|datum|data|fecha|dato|paiva|paivamaara|kuupaev|datums|tarih|islem tarihi|dag|transaction date|trans|tran|"
     u"run date|trans date|trade date|дата|ημερομηνια|ημ νια|日付|日期|利用日|ご利用日|날짜|day|tag|dia|giorno|jour|"
     u"datum provedeni|datum transakce|datum transakcie|datum verrichting|transaktionsdatum|"
     u"transactiedatum|operacios datum|tranzakcio datuma"},
    {CVColumnRole::Ignored, 0,
     u"transaction time|time|time "
     u"zone|uhrzeit|umsatzzeit|zeit|heure|hora|ora|tijd|tid|aika|cas|godzina|ido|saat|时间|時間|记账时间|"
     u"시간"},
    {CVColumnRole::Fee, 0,
     u"entgelt|amount fee|fee|fees|fee amount|transaction fee|gebuhr|gebuhren|gebuehr|gebuehren|frais|commission|"
     u"commissions|commissione|commissioni|comision|comissao|poplatek|poplatky|avgift|gebyr|"
     u"kosten op verrichting|oplata|prowizja|provizia|dij|jutalek|provizija|ucret|комиссия|手数料|手续费"},
    {CVColumnRole::Ignored, 0,
     u"bank code|branch code|sort code|account number|account no|account nr|account id|account name|"
     u"account type|account key|account label|account num|account|card number|card id|card no|card|"
     u"card type|cheque no|kontonummer|konto nr|kontoname|konto|kontobezeichnung|auftragskonto|"
     u"bezeichnung auftragskonto|bankname|bankleitzahl|blz|iban|bic|swift|rekening|rekeningnummer|"
     u"tegenrekening|numero de compte|compte|numero de cuenta|cuenta|numero conto|conta|agencia|"
     u"dependencia origem|cislo uctu|cislo protiuctu|nazev uctu|protiucet|rachunek|numer rachunku|"
     u"numer konta|szamlaszam|broj racuna|racun|kontonamn|tilinumero|tili|卡号|账号|口座番号|借记卡号|계좌번호|"
     u"mandatsreferenz|mandate|mandate id|mandate reference|glaeubiger id|glaubiger id|creditor id|"
     u"originator identifier|incassant id|machtigingskenmerk|sammlerreferenz|batch id|volgnr|client id|"
     u"client code|item id|customer id|user id|username|purpose code|bank|branch|vs|ks|ss|channel|渠道|网点名称|"
     u"对方开户行|对方卡号账号|status|state|country|merchant country|location|merchant place|city|ort|land|"
     u"postal code|zip|street|address|address status|phone|transactie code|code|mcc|flag|cleared|"
     u"funding source|destination|from email address|to email address|email address|"
     u"gekennzeichneter umsatz"},
    {CVColumnRole::Balance, 0,
     u"closing balance|available balance|final balance|ending balance|running bal|bokfort saldo|guthaben|saldo po "
     u"transakcji|saldo contabilistico|running balance|balance|account "
     u"balance|saldo|kontostand|solde|zustatek|zostatok|egyenleg|bakiye|"
     u"stanje|jaak|likutis|atlikums|sold|saldo nach buchung|saldo na trn|saldo po operacji|salderad|"
     u"saldo "
     u"tras|accountbalance|остаток|баланс|залишок|υπολοιπο|残高|差引残高|取引後残高|余额|联机余额|账户余额|잔액|"
     u"거래후잔액|結餘"},
    {CVColumnRole::Purpose, 1,
     u"type of transaction|transaction type|type|kind|art|umsatzart|umsatztyp|transaktionstyp|typ|"
     u"typ transakce|tipo|tipo de movimiento|mutatiesoort|tapahtumalaji|verotyyppi|d c|c d|d k|dc|s h|"
     u"soll haben|credit debit|debit credit|debit or credit|debet credit|af bij|cr dr|dr cr|sens|signe|"
     u"sign|kennzeichen|richtung|direction|in out|indicator|debe haber|dare avere|wn ma|收支|借贷|借貸|借贷标志|"
     u"入出金区分"},
    {CVColumnRole::MoneyOut, 0,
     u"支払い金額|支払額|引出額|debit euros|debito r|kwota debetu|money out|paid out|payment out|payments "
     u"out|withdrawal|withdrawals|withdrawal amount|withdrawal amt|"
     u"debit amount|debit|debits|debit amt|amount debit|outflow|outgoing|amount out|spent|expense|expenses|"
     u"out|soll|belastung|belastungen|lastschrift|ausgang|ausgaben|ausgabe|abgang|auszahlung|"
     u"zahlungsausgang|debet|af|debito|debiti|debitos|addebito|addebiti|uscite|uscita|dare|cargo|cargos|"
     u"debe|gasto|gastos|retiro|retiros|egreso|egresos|saida|saidas|despesa|depense|depenses|wydatki|"
     u"wydatek|obciazenia|obciazenie|wyplaty|kwota obciazenia|uttag|utgift|utgifter|ut|ut fra konto|"
     u"ut av konto|ud|udbetaling|haevet|debitering|belastet|vydej|vydaje|vydaj|na vrub|rashod|isplata|"
     u"isplate|zaduzenje|duguje|breme|v breme|terheles|kiadas|debitare|plati|iesiri|borc|gider|cikan|giden|"
     u"расход|расходы|списание|списано|дебет|видатки|χρεωση|χρεωσεις|出金金額|出金額|出金|支出金額|支出金额|支出|"
     u"支払金額|お支払金額|"
     u"お引出し|引出金額|借方|출금액|출금|찾으신금액|kulu|deebet|izmaksats"},
    {CVColumnRole::MoneyIn, 0,
     u"預かり金額|預り金額|credit euros|kwota kredytu|money in|paid in|payment in|payments in|deposit|deposits|deposit "
     u"amount|deposit amt|credit amount|"
     u"credit|credits|credit amt|amount credit|inflow|incoming|amount in|received|income|in|haben|"
     u"gutschrift|gutschriften|eingang|einnahmen|einnahme|zugang|einzahlung|zahlungseingang|kredit|bij|"
     u"credito|crediti|creditos|accredito|accrediti|entrate|entrata|avere|abono|abonos|haber|ingreso|"
     u"ingresos|depositos|deposito|entrada|entradas|receita|recette|recettes|wplywy|wplyw|uznania|uznanie|"
     u"wplaty|kwota uznania|insattning|insattningar|inkomst|inn|inn pa konto|innskudd|ind|indbetaling|"
     u"indsat|godskrevet|prijem|prijmy|ve prospech|v prospech|uplata|uplate|odobrenje|potrazuje|dobro|"
     u"v dobro|jovairas|bevetel|creditare|incasari|intrari|alacak|gelir|giren|gelen|приход|поступление|"
     u"поступления|зачисление|зачислено|кредит|надходження|πιστωση|πιστωσεις|入金金額|入金額|入金|預入金額|お預入れ|"
     u"お預り金額|"
     u"預入|収入|收入金额|收入|存入|貸方|입금액|입금|맡기신금액|tulu|kreedit|iemaksats"},
    {CVColumnRole::Payer, 0,
     u"zahlungspflichtige|zahlungspflichtige r|zahlungspflichtiger|from|payer|debtor|debtor name|sender|"
     u"absender|ordenante|avsandare|nadawca"},
    {CVColumnRole::Payee, 0,
     u"payee|paid to|merchant name|merchant|counterparty name|counterparty|counter party|beneficiary name|"
     u"beneficiary|other party|empfanger|empfaenger|empfanger zahlungspflichtiger|auftraggeber empfanger|"
     u"auftraggeber beguenstigter|auftraggeber begunstigter|auftraggeber|beguenstigter zahlungspflichtiger|"
     u"begunstigter zahlungspflichtiger|beguenstigter|begunstigter|zahlungsempfanger|zahlungsempfanger in|"
     u"name zahlungsbeteiligter|zahlungsbeteiligter|zahlungsbeteiligte|handler|haendler|naam tegenpartij|"
     u"tegenpartij|naam|begunstigde|handelaar|nazev protiuctu|nazov protiuctu|protistrana|nazev obchodnika|"
     u"beneficiaire|tiers|destinataire|contrepartie|marchand|beneficiario|contraparte|comercio|controparte|"
     u"favorecido|destinatario|mottagare|mottaker|modtager|namn|navn|saaja|saaja maksaja|maksunsaaja|"
     u"odbiorca|nadawca odbiorca|kontrahent|partner|partner neve|partner nev|kedvezmenyezett|primatelj|"
     u"primalac|prejemnik|gavejas|moketojas gavejas|sanemejs|partneris|platitor beneficiar|beneficiar|"
     u"alici|gonderen alici|получатель|контрагент|плательщик получатель|отримувач|δικαιουχος|对方账户名|对方户名|"
     u"对手信息|交易对方|对方名称|取引先|お取引先|利用店名|ご利用店名|利用先|받는분|거래처|vendor|shop|store|recipient|"
     u"name|to|creditor name|"
     u"creditor|company"},
    {CVColumnRole::Category, 0,
     u"category|sub category|kategorie|categorie|categoria|kategoria|kategori|kategorija|категория|分类|分類|"
     u"カテゴリ|luokka|category parent"},
    {CVColumnRole::BankID, 0,
     u"transaction id|transaction number|transaction reference|transaction ref|trans id|transactie id|"
     u"transactiereferentie|transaktions id|transaktionsnummer|id transakce|id transakcie|id operacji|"
     u"record id|document number|numero do documento|numero de operacion|numero operacion|"
     u"numero operazione|operation number|zahlungsreferenz|reference number|reference no|reference|"
     u"reference id|ref no|ref|referenz|referenznummer|kundenreferenz|kenmerk|viite|referens|"
     u"arkistointitunnus|referencia|riferimento|referencja|id|流水号|取引番号|unique id|bank reference"},
    {CVColumnRole::Amount, 0,
     u"objem|bogfort belob|bokfort belopp|amount in account currency|billing amount|billed amount|zauctovana "
     u"castka|zuctovana suma|"
     u"betrag in eur|amount in eur|bedrag in eur|amount|betrag|umsatz|montant|importe|importo|valor|bedrag|"
     u"belopp|belob|belop|summa|kwota|castka|ciastka|suma|osszeg|iznos|znesek|tutar|islem tutari|сумма|"
     u"сума|ποσο|ποσον|金額|金额|入出金|入出金額|交易金额|交易金額|利用金額|ご利用金額|금액|거래금액|maara|"
     u"sum|gross|net|gross amount|"
     u"net amount|brutto|netto|monto|montante|quantia|buchungsbetrag|umsatz in eur|betrag eur|"
     u"kwota operacji|kwota transakcji|saldoendring|debito credito|debit credit amount|debetas kreditas"},
    {CVColumnRole::Amount, 1, u"transaction amount|transaktionsbetrag|total|value|amt|transaction value"},
    {CVColumnRole::Purpose, 0,
     u"beschreibung|beskrivning|forklaring|otsikko|vorgang|bezeichnung|betekenis|descriptif|motif|商品|商品说明|"
     u"description|purpose|details|detail|memo|note|notes|notiz|notizen|narrative|narration|particulars|label|libelle|"
     u"intitule|nature|verwendungszweck|zweck|buchungstext|umsatztext|betreff|reason|omschrijving|"
     u"omschrijving 1|omschrijving 2|omschrijving 3|mededeling|mededelingen|toelichting|concepto|"
     u"descripcion|detalle|observaciones|glosa|movimiento|causale|descrizione|descrizione operazione|"
     u"dettagli|historico|descricao|descritivo|lancamento|rubrik|text|texto|texte|tekst|besked|meddelande|"
     u"melding|viesti|selite|tapahtuma|selitys|tytul|tytulem|opis|opis operacji|popis|zprava|"
     u"zprava pro prijemce|poznamka|sprava|ucel|namjena|svrha|namen|kozlemeny|megjegyzes|leiras|tranzakcio|"
     u"detalii|explicatie|explicatii|descriere|aciklama|islem aciklamasi|описание|назначение|"
     u"назначение "
     u"платежа|призначення|деталі|αιτιολογια|περιγραφη|摘要|摘要内容|交易摘要|交易名称|附言|客户摘要|お取引内容|"
     u"取引内容|内容|"
     u"入出金内容|お取引の内容|利用内容|적요|내용|기재내용|remarque|remarques|message|remark|remarks|communication|"
     u"communications|"
     u"informations|informacje|selgitus|apraksts|detalas|paskirtis|mokejimo paskirtis|action|activity|"
     u"item title|transaction|operation|posting text|info|vwz|vwz1|vwz2|vwz3|vwz4|vwz5|vwz6|vwz7|vwz8|vwz9|"
     u"vwz10|vwz11|vwz12|vwz13|vwz14|mouvement|ozeti|comment"},
}};

/// Words of the table; `place` is their place in it.
struct HeadingWord {
    QString words;
    CVHeading heading;
    int place = 0;
};

/// Whether the writing of the words has no blanks between them.
bool isWithoutBlanks(QStringView words) {
    return std::any_of(words.begin(), words.end(), [](QChar c) { return c.script() > QChar::Script_Cyrillic; });
}

/// The words of the table: by themselves, and those of writings without blanks in a row.
struct HeadingTable {
    QHash<QString, HeadingWord> words;
    std::vector<HeadingWord> withoutBlanks;
};

const HeadingTable& headingTable() {
    static const HeadingTable table = [] {
        HeadingTable made;
        for (const auto& [role, rank, headings] : kHeadingGroups) {
            for (const QString& heading : QString::fromUtf16(headings).split(u'|')) {
                const HeadingWord word{heading, {role, rank}, static_cast<int>(made.words.size())};
                made.words.insert(heading, word);
                if (isWithoutBlanks(heading))
                    made.withoutBlanks.push_back(word);
            }
        }
        return made;
    }();
    return table;
}

/// The text without what stands in brackets, such as a currency.
QString withoutBrackets(const QString& text) {
    const auto open = text.indexOf(u'(');
    const auto close = text.indexOf(u')', open);
    return open > 0 && close > open ? text.first(open) + text.sliced(close + 1) : text;
}

std::optional<CVHeading> wholeHeading(const QString& heading) {
    const auto& words = headingTable().words;
    const auto found = words.constFind(heading);
    return found == words.cend() ? std::nullopt : std::optional(found->heading);
}

/// Whether the words tell more than that a column holds amounts.
bool isNarrowerThanAmount(CVColumnRole role) {
    return role == CVColumnRole::MoneyIn || role == CVColumnRole::MoneyOut || role == CVColumnRole::Balance ||
           role == CVColumnRole::Fee;
}

/// The words of the table that a heading holds, the longest first.
std::vector<HeadingWord> wordsWithin(const QString& heading) {
    constexpr qsizetype kShortestWords = 4;
    constexpr qsizetype kMostWords = 8;
    const HeadingTable& table = headingTable();
    std::vector<HeadingWord> found;
    const QStringList words = heading.split(u' ');
    for (qsizetype first = 0; first < std::min(words.size(), kMostWords); ++first) {
        QString some;
        for (qsizetype last = first; last < std::min(words.size(), kMostWords); ++last) {
            some += last == first ? words.at(last) : QString(u' ' + words.at(last));
            if (const auto word = table.words.constFind(some);
                word != table.words.cend() && some.size() >= kShortestWords)
                found.push_back(*word);
        }
    }
    if (isWithoutBlanks(heading)) {
        std::copy_if(table.withoutBlanks.begin(), table.withoutBlanks.end(), std::back_inserter(found),
                     [&heading](const HeadingWord& word) { return heading.contains(word.words); });
    }
    std::stable_sort(found.begin(), found.end(), [](const HeadingWord& a, const HeadingWord& b) {
        return a.words.size() != b.words.size() ? a.words.size() > b.words.size() : a.place < b.place;
    });
    return found;
}

/// The heading of the longest words that the text holds; Guessed without any.
CVHeading headingWithin(const QString& heading) {
    const auto words = wordsWithin(heading);
    if (words.empty())
        return {};
    const HeadingWord& longest = words.front();
    for (const HeadingWord& word : words) {
        const bool isBeside = !longest.words.contains(word.words);
        if (longest.heading.role == CVColumnRole::Amount && isBeside && isNarrowerThanAmount(word.heading.role))
            return word.heading;
    }
    return longest.heading;
}

/// Words, with blanks around them, that make of any heading the number or the place of an account.
constexpr std::array kAccountWords{u" iban ",           u" bic ",         u" swift ",     u" blz ",
                                   u" account number ", u" kontonummer ", u" account no "};

bool namesAccount(const QString& heading) {
    const QString padded = u' ' + heading + u' ';
    return std::any_of(kAccountWords.begin(), kAccountWords.end(),
                       [&padded](const char16_t* words) { return padded.contains(QStringView(words)); });
}

} // namespace

CVHeading CVHeadingOf(const QString& text) {
    constexpr qsizetype kLongestHeading = 60;
    constexpr std::ptrdiff_t kMostDigits = 3;
    const auto digits = std::count_if(text.begin(), text.end(), [](QChar c) { return c.isDigit(); });
    if (text.isEmpty() || text.size() > kLongestHeading || digits > kMostDigits || digits == text.size())
        return {};
    const QString heading = CVPlainWords(text);
    if (heading.isEmpty())
        return {};
    if (const auto known = wholeHeading(heading))
        return *known;
    if (namesAccount(heading))
        return {CVColumnRole::Ignored, 0};
    const CVHeading within = headingWithin(heading);
    if (within.role != CVColumnRole::Guessed)
        return within;
    return wholeHeading(CVPlainWords(withoutBrackets(text))).value_or(CVHeading());
}
