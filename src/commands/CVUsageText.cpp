#include "commands/CVUsageText.h"

#include <QCoreApplication>

namespace {

struct UsageText {
    Q_DECLARE_TR_FUNCTIONS(CVUsageText)
};

QString commands() {
    return UsageText::tr("Usage: corvella                        open your budget\n"
                         "       corvella check [OPTION...]      say what a data file holds\n"
                         "       corvella sets [OPTION...]       list the transaction sets\n"
                         "       corvella diff A [B]             say what changed from one data file to a later one\n"
                         "       corvella versions [OPTION...]   list the earlier versions of a data file\n"
                         "       corvella export [OPTION...]     write transactions as text, CSV or JSON\n"
                         "       corvella report KIND [OPTION...]\n"
                         "                                       write a report as a PDF file or as text\n"
                         "       corvella import FILE --set NAME [OPTION...]\n"
                         "                                       take in a statement of your bank\n"
                         "       corvella import FILE [OPTION...]\n"
                         "                                       take in another budget\n"
                         "       corvella COMMAND --help         what one command takes\n"
                         "       corvella --version | --help\n");
}

QString status() {
    return UsageText::tr(
        "The commands show no window, read your own data file where --data names no other, and write nothing\n"
        "but their output; import alone records something. Their exit status is 0 when all of it was written, 1 when "
        "something failed, which one\n"
        "line on standard error tells, and 2 when the command line was not understood; diff has its own. An option\n"
        "that would be ignored, or is given twice, is not understood.\n");
}

QString optionsOfAll() {
    return UsageText::tr("Options of every command:\n"
                         "  --data FILE                   the data file, which may be a pipe; - is standard input\n"
                         "  -h, --help                    this help\n");
}

QString optionsOfLists() {
    return UsageText::tr(
        "Options of export and report:\n"
        "  --range RANGE                 0 all (as without it), 1 this year and last, 2 last year,\n"
        "                                3 this year, 4 last month, 5 this month, 6 last week, 7 this week;\n"
        "                                or a DAY of the form below; not for the summary\n"
        "  --from DAY --to DAY           these days and those between, in place of --range; each can stand\n"
        "                                alone; the summary takes --from alone and begins with its period\n"
        "  --set NAME                    the transaction set; otherwise the file's current one\n"
        "  --today DAY                   runs as on that day, a single one: the numbers 1 to 7 of --range and\n"
        "                                the word today count from it, headings and PDF files are named\n"
        "                                after it; days that are written out are the same on any day\n"
        "  --output FILE                 otherwise, and for -, standard output\n"
        "\n"
        "DAY is a day (2014-01-31 or 2014/01/31), a month (2014-01), a year (2014) or today. --from takes the\n"
        "first day of a month or year, --to the last, --range all of them.\n");
}

QString optionsOfExport() {
    return UsageText::tr(
        "Options of export alone:\n"
        "  --search KIND:TEXT            0 all text fields, 1 paid to, 2 for, 3 category, 4 tax,\n"
        "                                5 user flag, 6 amount greater than, 7 equal to, 8 less than\n"
        "  --sort COLUMN[:descending]    date, amount, tofrom, for, category, tax or userflag;\n"
        "                                otherwise date:descending\n"
        "  --format tsv|csv|json         tsv (as without it) is the list, with dates and amounts in the form\n"
        "                                of the locale; csv and json hold set, category, tax and flag too,\n"
        "                                with days as 2014-01-31 and plain numbers in every locale\n"
        "  --all-sets                    the transactions of all sets, in place of --set\n");
}

QString optionsOfReport() {
    return UsageText::tr(
        "KIND is transactions, averages, plan, percent, tax or summary. With --output the report is a PDF\n"
        "file (--output - writes it to standard output), otherwise text with a tabulator between columns.\n"
        "With --format it is written for other programs, with or without --output.\n"
        "\n"
        "Options of report alone:\n"
        "  --period PERIOD               of the summary: day (as without it), week, two-weeks or month\n"
        "  --paper a4|letter             of a PDF file: otherwise what is usual where you live\n"
        "  --format csv|json             its headings and lines with plain numbers (12.5) and days as 2014-01-31,\n"
        "                                the same in every language but for the words\n");
}

QString textOfDiff() {
    return UsageText::tr(
        "Usage: corvella diff A [B]\n"
        "\n"
        "Writes what changed from the data file A to the later data file B, which is your own where it is not\n"
        "named. One of them may be a pipe, and - is standard input; the file name of an earlier version, as\n"
        "\"corvella versions\" lists it, stands for that version of your own data file. A line for each\n"
        "difference: + for what was added, - for what was removed, ~ for what was changed; then, each after a\n"
        "tabulator,\n"
        "\n"
        "  set          its name\n"
        "  category     its name, its plan\n"
        "  transaction  its set, day, amount, payee, purpose, category, X where taxed, X where flagged\n"
        "\n"
        "What was changed stands as \"old => new\". Transactions are compared by what they say: their order means\n"
        "nothing. The exit status is that of diff: 0 without a difference, 1 with some, 2 when something failed,\n"
        "which one line on standard error tells, or the command line was not understood.\n"
        "\n"
        "  -h, --help   this help\n");
}

QString textOfVersions() {
    return UsageText::tr(
        "Usage: corvella versions [OPTION...]\n"
        "\n"
        "Lists the earlier versions of a data file and the copies that were kept before they were written over,\n"
        "newest first: when each ceased to be the present state (2026-11-22 14:02:07), why it was kept, its bytes\n"
        "and its path, with a tabulator between them. The data file itself is not read.\n"
        "\n"
        "  --data FILE   the data file, which cannot be a pipe\n"
        "  -h, --help    this help\n");
}

QString textOfImport() {
    return UsageText::tr(
        "Usage: corvella import FILE --set NAME [OPTION...]\n"
        "       corvella import FILE [--data FILE] [--dry-run]\n"
        "\n"
        "Records a statement of your bank: OFX, QFX, QIF, CAMT, or a text with commas, semicolons, tabs or bars\n"
        "between its columns; - is standard input. Lines that are recorded already or were left out before stay out,\n"
        "categories come from what you have recorded, an earlier version is kept, and the number of transactions is\n"
        "written. All or nothing: the exit status is 1, and nothing is recorded, where the statement leaves something\n"
        "open (one line on standard error asks, and names the options that answer), where a line cannot be read or\n"
        "has no category, and while a program has the data file open. The answers are kept by the header of the\n"
        "statement and used the next time.\n"
        "\n"
        "A FILE that is another data file of Corvella, or that holds transactions that \"corvella export\" has written "
        "as\n"
        "csv or json, takes no other option. What it has and the budget has not comes in, into the sets and categories "
        "of\n"
        "the same names; nothing of yours is removed or changed. --dry-run writes those transactions as \"corvella "
        "export\n"
        "--format csv\" does.\n"
        "\n"
        "Of a statement, --dry-run writes the lines as comma-separated text and records nothing: date, amount (money "
        "out is\n"
        "positive), payee, for, category, sure (sure or likely), note. Without the data file or the set it works too.\n"
        "\n"
        "  --set NAME                    the transaction set for money out, which must be there\n"
        "  --income same|none            money in: into the same set (as without it), or left out\n"
        "  --income-set NAME             or into a set of its own, which must be there\n"
        "  --category-for-rest NAME      the category of the lines for which none is remembered; made if missing\n"
        "  --mapping NAME                read as a mapping of that name; otherwise as the header was read before\n"
        "  --skip-unreadable             lines that cannot be read do not matter\n"
        "  --dry-run                     show the lines only\n"
        "  --signed                      of --dry-run: money out has a minus sign\n");
}

QString optionsOfImport() {
    return UsageText::tr(
        "How the statement is read, otherwise guessed; columns and lines count from 1:\n"
        "  --date N --amount N           the columns of the booking day and of the amount\n"
        "  --out N --in N                two columns in place of --amount\n"
        "  --marker N                    the column whose words tell money out from money in\n"
        "  --out-marker WORD             the word for money out, where it is an unusual one\n"
        "  --fee N                       money out on top of the amount\n"
        "  --payee N --payer N           who is paid, and who pays: the payee of money in\n"
        "  --for N --category N --balance N --currency N --value-date N --bank-id N --ignore N\n"
        "  --date-order dmy|mdy|ymd      the order of day, month and year\n"
        "  --decimal point|comma         the decimal mark\n"
        "  --sign normal|inverted        inverted: an amount without a minus sign is money out\n"
        "  --year YEAR                   of days without one, from the first line on; 2026-2025 where\n"
        "                                others are in another year, 2026-2026 where none are\n"
        "  --header LINE|none            the line of the header\n"
        "  --separator comma|semicolon|tab|bar\n"
        "  --encoding NAME               UTF-8, windows-1252 and others\n"
        "  --account NAME                of a file with several accounts the one to import\n");
}

/// Joins the parts with an empty line between them.
QString joined(const QStringList& parts) {
    return parts.join(u'\n');
}

} // namespace

QString CVUsageText(const QString& command) {
    if (command == QLatin1String("check"))
        return joined(
            {UsageText::tr(
                 "Usage: corvella check [OPTION...]\n\nWrites how many transactions, categories and transaction "
                 "sets a data file holds, and the ID of the current set. What was understood only in\npart is noted on "
                 "standard error.\n"),
             optionsOfAll(), status()});
    if (command == QLatin1String("sets"))
        return joined(
            {UsageText::tr("Usage: corvella sets [OPTION...]\n\nWrites the names of the transaction sets, one on each "
                           "line, as --set takes them.\n"),
             optionsOfAll(), status()});
    if (command == QLatin1String("diff"))
        return textOfDiff();
    if (command == QLatin1String("versions"))
        return joined({textOfVersions(), status()});
    if (command == QLatin1String("import"))
        return joined({textOfImport(), optionsOfImport(), optionsOfAll()});
    if (command == QLatin1String("export"))
        return joined(
            {UsageText::tr(
                 "Usage: corvella export [OPTION...]\n\nWrites the transactions of a set, or of all, as tab-separated "
                 "text: date, amount, X where taxed, paid\nto, for, category; or with --format as comma-separated text "
                 "(CSV) or JSON, which hold all that a\ntransaction says and can be read back.\n"),
             optionsOfExport(), optionsOfLists(), optionsOfAll(), status()});
    if (command == QLatin1String("report"))
        return joined({UsageText::tr("Usage: corvella report KIND [OPTION...]\n"), optionsOfReport(), optionsOfLists(),
                       optionsOfAll(), status()});
    return joined({commands(), status(), optionsOfAll(), optionsOfLists(), optionsOfExport(), optionsOfReport()});
}
