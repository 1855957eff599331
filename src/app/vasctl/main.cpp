#include "app/vasctl/command_options.h"
#include "app/vasctl/session.h"

#include "common/error_block.h"
#include "platform/desktop/terminal.h"
#include "platform/files/disk.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using namespace vasclip::vasctl;

namespace {

const QString kHelp =
    uR"(Works with a Vasclip home from the terminal, also while the program's window is open.

Commands:
  records list [--where SQL] [--sort FIELD] [--limit N]
                          the records of the Databook
  records find KEY        one record in short; exit code 3 if it is not there
  records show KEY        one record with every field that holds something
  records add KEY [--type F|C|S|R|L|M] [--set FIELD=VALUE ...]
  records edit KEY --set FIELD=VALUE [--set ...]
  records delete KEY      asks first; the record's pictures go too
  records copy KEY NEW    a second record under a new address
  records rename KEY NEW
  search [--FIELD TEXT ...] [--sort FIELD] [--ignore-pending | --with-pending] [--exact] [--limit N] [--sql]
                          the records that hold all that is said, as the search screen finds them; exit code 3 if
                          there are none. The fields of that screen, each an option:
                          --key --address --city --state --zip --county --neighborhood --bedrooms --baths
                          --tax-map --census --stories --cts --comp-type --porch --notes --design
                          --sqft --price --age --land-size --price-gla: N with --price-range N or N%,
                          or --price-from N and --price-to N, of which one may be left out
                          --sale-date --load-date: DATE with --sale-date-range prior, equal or after
                          --sql prints the statement and does not run it
  find TEXT               the records that hold every word in key, address, city, neighborhood or notes, as the
                          quick-find box finds them; exit code 3 if there are none
  cities list             the city list, line by line
  cities add --city CITY [--state ST] [--zip ZIP] [--county COUNTY]
  cities delete LINE      a line as 'cities list' prints it, or its number; asks first
  cities assign NEIGHBORHOOD --city CITY [--state ST] [--zip ZIP] [--county COUNTY]
                          gives them to every record of a neighborhood; what is left out becomes blank
  sql [--file FILE] "SELECT ..."
                          a query in the program's SQL, read only, on the Databook or on another database file: one
                          of Vasclip or one of Access; a file without a query lists its tables. With --json Yes and No
                          are true and false, Null is null, numbers are numbers, dates "2004-03-07" or with their time
                          "2004-03-07T14:30:00"; of a picture or other bytes it tells how many: {"bytes": 70000}
  capture list [DIR]      the pictures of the capture directory, or of another one, and which are known there
  capture copy DIR [NAME ...]
                          copies pictures into the capture directory, given as C:\CARD or as the system writes it;
                          asks about those that have come in before, and says what it left out and why
  trash list [--dir DIR]  the pictures of the trashcan, or of another one
  trash restore NAME ... [--dir DIR]
                          brings pictures back to the directory that the trashcan belongs to
  trash empty [--before DATE] [--dir DIR]
                          deletes them for good, or those of the date and older; asks first
  report status           the report that is open in the forms program
  report pages            its pages and what their slots hold
  report images           its picture objects and the files in them
  report cells [FORM|ROW|CELL ...]
                          cells by address, or all mapped cells that hold something
  refresh                 reads the open report as the program's Refresh does
  drop KEY --on SLOT:N    drops a record on a slot: txtComp:1-9, txtAltComp:1-6, txtListing:1-6, txtRental:1-9,
                          or on a data box (geaComp and so on) for the data without the photo
  swap A B                exchanges two sales comps, 1 to 9, of the open report, with their pictures
  photos list KEY         the photos of a record: view, stem, size, file
  photos file KEY VIEW FILE
                          files a picture with a record, which is added if it is not there; asks before it
                          takes the place of another one of that view
  photos rename-view KEY VIEW NEW
  photos delete KEY VIEW  asks first; the picture goes back to the capture directory
  photos orphans          photos whose files are gone, and stored files that no record names
  photos verify           decodes every stored photo; exit code 1 if one is lost or damaged
  transfer subject        the report's columns become records of the Databook, with their pictures; asks before it
  transfer comps [N]      replaces a record's data. With a number that column alone, else all of its kind;
  transfer alternates [N] --data stores the data alone, --pictures the pictures alone
  transfer listings [N]
  transfer rentals [N]
  transfer all
  map geocode ADDRESS     where an address is on the street map: latitude, longitude, how it was found, the feet it
                          may be off, and the address as found, the best first; exit code 3 if it is not found
  map reverse LATITUDE LONGITUDE
                          the addresses at a place, in degrees; exit code 3 if no street is near
  map find ADDRESS        where an address or a crossing is, if it is sure; or the subject or a comp of the open
                          report by its label: SUBJECT, "COMP #1". Exit code 3 if it is not found
  map place [KEY ...]     finds the places of the open report's subject and comps, or of records, and keeps them in the
                          Databook; a place that was put right by hand stays. Exit code 3 if one is not found
  map anchor KEY LATITUDE LONGITUDE
                          puts a record at a place by hand, for ever; asks where that is outside of the street maps
  map proximity           sends distance and direction of the open report's comps into it
  map picture --out FILE  the street map with subject and comps of the open report as a PNG of 1500 x 1000 pixels; in
                          the demo also without a report
  map export delorme      the report's addresses for an outside map program, into the map export directory; or
                          delorme2005, streets, streets2001. The last two write an Access file; with --to vasclip a
                          database of this program's own kind
  mapdata import SOURCE ... [--county NAME] [--state ST] [--source WORDS] [--date DATE] [--account FILE] [--beside]
                          makes street maps of public street files: TIGER/Line, OpenStreetMap, address points. With
                          --beside they wait beside those in use
  mapdata list            the street maps of this home
  mapdata verify          reads them from end to end; exit code 1 if one is damaged
  mapdata diff            the records that the maps that wait would move by more than 300 feet; without such maps,
                          those that stand so far from where the maps in use have them
  mapdata use             takes the maps that wait into use
  mapdata discard         deletes the maps that wait
  mapdata remove COUNTY   takes one away
  export --file NAME [--table NAME] [--to access] [--pictures] [--where SQL]
                          copies records into a table of another database, which is replaced; with --pictures the
                          front picture of each is put inside. A bare NAME stands in the export directory. --where
                          takes a condition ("CITY = 'Marlow'"), with an ORDER BY behind it or none
  export --file NAME --to csv [--where SQL] [--delimiter C] [--code-page NAME]
                          the same as a CSV file in UTF-8, or in another code page
  import FILE [--table NAME] [--pictures]
                          adds the records of another database; those whose key is there stay out, and are listed.
                          With --pictures the pictures inside the rows go to the photo directory; asks before it
                          writes over another picture. A bare FILE stands in the import directory
  import FILE.csv|FILE.xlsx [--map HEADING=FIELD ...] [--preset NAME] [--delimiter C] [--code-page NAME]
         [--sheet NAME] [--headings LINE] [--dates mdy|dmy|ymd] [--decimal point|comma]
                          the same from a text or spreadsheet file. Where each column goes and how dates and numbers
                          are written is found out and told; --map changes the columns, and is kept for files of the
                          same headings. --preset takes what was kept under a name in the window
  import FILE ... --rehearse [--refused FILE]
                          tells of each row whether it is new, changed, the same, at the same address as another
                          record, or refused and why; does nothing. --refused writes the refused rows as a CSV file
  import FILE ... --choose KIND=CHOICE ...
                          imports by that: new=add or mine; changed=mine, theirs or blanks (only where the record
                          holds nothing); twin (same address) likewise or add
  layouts list            the saved layouts of the grid
  layouts show NAME       its columns in their order
  layouts save NAME       the layout that the program left, under a name
  layouts use NAME        the program starts with it; close the program first, it saves its own at exit
  layouts delete NAME     asks first
  layouts default         the program's own layout
  settings list           every setting, with its page and label on the settings screen
  settings get [SECTION] KEY
  settings set [SECTION] KEY VALUE
  comments list FIELD     the phrases of a field: its function keys and its list
  comments key FIELD F3 [TEXT]
                          what a key (F3 to F8) holds for a field; with TEXT it is stored there, asking first
  comments add FIELD TEXT, comments delete FIELD TEXT
                          a phrase of the field's list
  databook copy FILE      a new Databook of all that can still be read of a damaged one; exit code 1, with what is
                          missing, if that is not all of it
  archive --from DATE --to DATE [--file FILE] [--ask]
                          moves the records sold between two dates, both days included, into the archive of the settings
                          or another one, with their pictures; exit code 1 if some had to stay
  maintain recalc         repairs of the whole Databook; each asks first, and prints every field that it changed, or
  maintain clear-anchors  keeps that in the file of --account
  maintain clear-photos
  maintain land-size
  maintain clean-keys
  maintain clean-comments the same of the comment file
  maintain match-key
  maintain proper-case
  maintain upper-case
  maintain delete-by-sale --date DATE, maintain delete-by-load --date DATE
                          deletes the records of this date and older with their pictures; 1/1/1900 means those
                          without a date
  print --list            the report layouts; exit code 1 if one of them is wrong
  print --fields          the fields that a report layout may name
  print --layout NAME --out FILE.pdf [--where SQL] [--paper NAME] [--landscape | --portrait]
                          prints the records of the Databook, or those for which a condition holds, into a PDF; asks
                          about more than 500
  print --layout NAME --csv FILE.csv [--where SQL]
                          the same columns as a text file
  print --layout NAME --copy NEW
                          copies a layout into the user's directory, for editing
  convert SOURCE TARGET --to access|vasclip
                          a new database of the other kind with all that the source holds; it has its name
                          only when every value has been compared, and the source stays as it is
  doctor                  checks the home: files, versions, drives, databases from end to end, link

Exit codes: 0 done; 1 failed, the message says why; 2 wrong command line; 3 not found; 4 a question was answered
with No or Cancel; 5 the forms program is not running or has no report open.)"_s;

int Dispatch(Session& session, const Output& out, QStringList arguments, const QCommandLineParser& options)
{
    const QString command = arguments.isEmpty() ? QString() : arguments.takeFirst();
    if (command == u"records"_s)
        return RunRecords(session, out, arguments, options);
    if (command == u"search"_s)
        return RunSearch(session, out, arguments, options);
    if (command == u"find"_s)
        return RunFind(session, out, arguments, options);
    if (command == u"cities"_s)
        return RunCities(session, out, arguments, options);
    if (command == u"capture"_s)
        return RunCapture(session, out, arguments, options);
    if (command == u"trash"_s)
        return RunTrash(session, out, arguments, options);
    if (command == u"sql"_s)
        return RunSql(session, out, arguments, options);
    if (command == u"report"_s)
        return RunReport(session, out, arguments);
    if (command == u"refresh"_s && arguments.isEmpty())
        return RunRefresh(session, out);
    if (command == u"drop"_s)
        return RunDrop(session, out, arguments, options);
    if (command == u"swap"_s)
        return RunSwap(session, out, arguments);
    if (command == u"photos"_s)
        return RunPhotos(session, out, arguments);
    if (command == u"transfer"_s)
        return RunTransfer(session, out, arguments, options);
    if (command == u"layouts"_s)
        return RunLayouts(session, out, arguments);
    if (command == u"settings"_s)
        return RunSettings(session, out, arguments);
    if (command == u"comments"_s)
        return RunComments(session, out, arguments);
    if (command == u"databook"_s)
        return RunDatabook(session, out, arguments);
    if (command == u"convert"_s)
        return RunConvert(session, out, arguments, options);
    if (command == u"map"_s)
        return RunMap(session, out, arguments, options);
    if (command == u"mapdata"_s)
        return RunMapdata(session, out, arguments, options);
    if (command == u"archive"_s)
        return RunArchive(session, out, arguments, options);
    if (command == u"maintain"_s)
        return RunMaintain(session, out, arguments, options);
    if (command == u"export"_s)
        return RunExport(session, out, arguments, options);
    if (command == u"import"_s)
        return RunImport(session, out, arguments, options);
    if (command == u"print"_s)
        return RunPrint(session, out, arguments, options);
    if (command == u"doctor"_s && arguments.isEmpty())
        return RunDoctor(session, out);
    out.Error(u"'%1' takes no such arguments; 'vasctl --help' lists them."_s.arg(command));
    return kUsage;
}

int Print(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), stdout);
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0 ? kDone : kFailed;
}

/// The map and a report draw letters, which wants more than other commands pay for, and no display.
std::unique_ptr<QCoreApplication> MakeApplication(int& argc, char* argv[])
{
    const auto says = [&](const char* wanted) {
        return std::any_of(argv, argv + argc, [&](const char* word) { return std::strcmp(word, wanted) == 0; });
    };
    if ((!says("map") || !says("picture")) && !says("print"))
        return std::make_unique<QCoreApplication>(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(argc, argv);
}

} // namespace

int main(int argc, char* argv[])
{
    const desktop::TerminalOutput terminal;
    const std::unique_ptr<QCoreApplication> app = MakeApplication(argc, argv);
    QCoreApplication::setApplicationName(u"vasctl"_s);
    QCoreApplication::setApplicationVersion(u"" VASCLIP_VERSION ""_s);

    QCommandLineParser options;
    options.setApplicationDescription(kHelp);
    options.addHelpOption();
    options.addVersionOption();
    options.addOptions({
        {u"home"_s, u"The home to work with (else VASCLIP_HOME, else the user's data directory)."_s,
         u"DIR"_s},
        {u"socket"_s, u"The forms program's socket, if it is not the home's own."_s, u"PATH"_s},
        {u"time-limit"_s, u"Seconds to wait for an answer of the forms program (5)."_s, u"SECONDS"_s, u"5"_s},
        {u"json"_s, u"Print JSON."_s},
        {u"yes"_s, u"Answer every question with Yes."_s},
        {u"no"_s, u"Answer every question with No."_s},
        {u"answer"_s, u"Answer the next question so (yes, no, cancel, ...); may be given several times."_s,
         u"WORD"_s},
        {u"on"_s, u"Where to drop: SLOT:INDEX."_s, u"SLOT"_s},
        {u"data"_s, u"Transfer the data."_s},
        {u"pictures"_s, u"Transfer the pictures; put them into an export, take them out of an import."_s},
        {u"file"_s, u"The file of an export, a bare name in the export directory; of sql, instead of the Databook."_s,
         u"FILE"_s},
        {u"table"_s, u"The table in a database file."_s, u"NAME"_s},
        {u"rehearse"_s, u"Tells what an import would do, and does nothing."_s},
        {u"choose"_s, u"What becomes of a kind of rows: changed=theirs; may be given several times."_s, u"KIND=CHOICE"_s},
        {u"refused"_s, u"A CSV file for the rows that an import refuses."_s, u"FILE"_s},
        {u"map"_s, u"Where a column of a list goes; may be given several times."_s, u"HEADING=FIELD"_s},
        {u"preset"_s, u"Columns and ways of writing of a list that were kept under a name."_s, u"NAME"_s},
        {u"sheet"_s, u"Of a spreadsheet file; the first one."_s, u"NAME"_s},
        {u"headings"_s, u"The line of a list that has the headings; 0 for a list without."_s, u"LINE"_s},
        {u"dates"_s, u"How a list writes dates: mdy, dmy, ymd."_s, u"ORDER"_s},
        {u"decimal"_s, u"The decimal sign of a list: point, comma."_s, u"SIGN"_s},
        {u"to"_s, u"What an export writes (vasclip, access, csv), or a conversion or a map export makes (access, vasclip); the last sale date of an "
                  "archive."_s,
         u"KIND|DATE"_s},
        {u"delimiter"_s, u"Between the values of a CSV file (,): a letter, or 'tab'."_s, u"C"_s},
        {u"code-page"_s, u"Of a CSV file: UTF-8, UTF-16, Windows-1252, ISO-8859-1."_s, u"NAME"_s},
        {u"out"_s, u"The file that is made."_s, u"FILE"_s},
        {u"source"_s, u"Where street files come from, in words."_s, u"WORDS"_s},
        {u"date"_s, u"Their date, or up to which one records are deleted."_s, u"DATE"_s},
        {u"from"_s, u"The first sale date of an archive."_s, u"DATE"_s},
        {u"ask"_s, u"Asks before a record of the archive is overwritten."_s},
        {u"account"_s, u"A file for what an import left out, and why, or for what a repair changed."_s, u"FILE"_s},
        {u"beside"_s, u"New maps wait beside those in use."_s},
        {u"type"_s, u"Comp type of a new record (F)."_s, u"LETTER"_s},
        {u"city"_s, u"A city."_s, u"NAME"_s},
        {u"state"_s, u"Its state."_s, u"ST"_s},
        {u"zip"_s, u"Its ZIP code."_s, u"ZIP"_s},
        {u"county"_s, u"Its county."_s, u"NAME"_s},
        {u"set"_s, u"Gives a field a value; may be given several times."_s, u"FIELD=VALUE"_s},
        {u"dir"_s, u"A trash directory (that of the capture directory)."_s, u"DIR"_s},
        {u"before"_s, u"Only pictures of this date or older."_s, u"DATE"_s},
        {u"where"_s, u"Only records for which this SQL condition holds."_s, u"SQL"_s},
        {u"sort"_s, u"Sort by a field; \"FIELD DESC\" for downward."_s, u"FIELD"_s},
        {u"layout"_s, u"A report layout, by its name."_s, u"NAME"_s},
        {u"list"_s, u"List the report layouts."_s},
        {u"fields"_s, u"List the fields of a report layout."_s},
        {u"copy"_s, u"Copy the report layout under this name."_s, u"NEW"_s},
        {u"paper"_s, u"The paper (letter, legal, tabloid, executive, a3, a4, a5)."_s, u"NAME"_s},
        {u"landscape"_s, u"The long side lies."_s},
        {u"portrait"_s, u"The long side stands."_s},
        {u"csv"_s, u"The report's columns as a text file."_s, u"FILE"_s},
        {u"limit"_s, u"At most so many records."_s, u"N"_s},
    });
    options.addOptions(SearchOptions());
    options.addPositionalArgument(u"COMMAND"_s, u"What to do."_s);
    if (!options.parse(WithSouthAndWest(app->arguments()))) {
        Output(false).Error(options.errorText());
        return kUsage;
    }
    const Output out(options.isSet(u"json"_s));
    // Printed here: the parser's own way is a box that waits, where it finds no terminal.
    if (options.isSet(u"help"_s) || options.isSet(u"version"_s))
        return Print(options.isSet(u"help"_s) ? options.helpText() : u"vasctl "_s + app->applicationVersion() + u'\n');
    bool number = false;
    const double seconds = options.value(u"time-limit"_s).toDouble(&number);
    if (!number || seconds <= 0 || seconds > 3600) {
        out.Error(u"--time-limit takes seconds, above 0 and at most 3600."_s);
        return kUsage;
    }
    if (options.isSet(u"yes"_s) && options.isSet(u"no"_s)) {
        out.Error(u"--yes and --no exclude each other."_s);
        return kUsage;
    }
    const QStringList command = CommandOf(options);
    if (const QString wrong = StrangeCommand(command); !wrong.isEmpty()) {
        out.Error(wrong);
        return kUsage;
    }
    const QString strange = StrangeOption(command, options.optionNames());
    if (!strange.isEmpty()) {
        out.Error(u"--%1 means nothing to 'vasctl %2'; 'vasctl --help' tells its options."_s.arg(
            strange, command.mid(0, 2).join(u' ')));
        return kUsage;
    }
    if (const QString wrong = WrongValue(options); !wrong.isEmpty()) {
        out.Error(wrong);
        return kUsage;
    }
    const Standing standing = options.isSet(u"yes"_s)  ? Standing::Yes
                              : options.isSet(u"no"_s) ? Standing::No
                                                       : Standing::Ask;
    TerminalPrompter prompter(standing, options.values(u"answer"_s), desktop::IsTerminal());
    try {
        Session session(options.isSet(u"home"_s) ? options.value(u"home"_s) : files::DefaultHome(),
                        options.value(u"socket"_s), static_cast<int>(seconds * 1000), prompter);
        const int code = Dispatch(session, out, command, options);
        if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
            return code;
        const QString why = errno == EBADF ? u"the output is closed"_s : QString::fromLocal8Bit(std::strerror(errno));
        out.Error(u"The answer could not be written: %1."_s.arg(why) +
                  (code == kDone ? u" The command itself was carried out."_s : QString()));
    } catch (const forms::EndOfProgram& end) {
        return end.exitCode == 0 ? kFailed : end.exitCode;
    } catch (const RuntimeError& failure) {
        out.Error(u"%1 (error %2)"_s.arg(failure.Description(), QString::number(failure.Number())));
    } catch (const std::exception& failure) {
        out.Error(QString::fromLocal8Bit(failure.what()));
    }
    return kFailed;
}
