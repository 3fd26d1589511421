<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Changes</name>
    <message>
        <source>Load case %1</source>
        <translation>Lastfall %1</translation>
    </message>
    <message>
        <source>Action %1</source>
        <translation>Einwirkung %1</translation>
    </message>
    <message>
        <source>Fact %1</source>
        <translation>Angabe %1</translation>
    </message>
    <message>
        <source>Record %1</source>
        <translation>Satz %1</translation>
    </message>
    <message>
        <source>new</source>
        <translation>neu</translation>
    </message>
    <message>
        <source>deleted</source>
        <translation>gelöscht</translation>
    </message>
    <message>
        <source>rewritten by the acceptance, edited by nobody</source>
        <translation>von der Übernahme neu geschrieben, von niemandem geändert</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Edits the actions and load cases of structural models.</source>
        <translation>Bearbeitet Einwirkungen und Lastfälle von Tragwerksmodellen.</translation>
    </message>
    <message>
        <source>The project to open.</source>
        <translation>Das Projekt, das geöffnet wird.</translation>
    </message>
    <message>
        <source>Opens a manager on the project: actions or loadcases.</source>
        <translation>Öffnet einen Manager für das Projekt: actions oder loadcases.</translation>
    </message>
    <message>
        <source>Only one project can be opened at a time.</source>
        <translation>Es kann nur ein Projekt auf einmal geöffnet werden.</translation>
    </message>
    <message>
        <source>There is no manager &apos;%1&apos;.</source>
        <translation>Es gibt keinen Manager „%1“.</translation>
    </message>
</context>
<context>
    <name>ContributionPicture</name>
    <message>
        <source>Sum</source>
        <translation>Summe</translation>
    </message>
</context>
<context>
    <name>Exchange</name>
    <message>
        <source>the row names no action</source>
        <translation>die Zeile nennt keine Einwirkung</translation>
    </message>
    <message>
        <source>&quot;%1&quot; of &quot;%2&quot; is none of %3</source>
        <translation>„%1“ bei „%2“ ist keines von %3</translation>
    </message>
    <message>
        <source>factors that the row doesn&apos;t state are those of %1 of the design code</source>
        <translation>Beiwerte, die die Zeile nicht nennt, sind die von %1 der Norm</translation>
    </message>
    <message>
        <source>&quot;%1&quot; stands in line %2 already</source>
        <translation>„%1“ steht schon in Zeile %2</translation>
    </message>
    <message>
        <source>a sheet of a workbook holds at most %1 columns</source>
        <translation>ein Blatt einer Arbeitsmappe fasst höchstens %1 Spalten</translation>
    </message>
    <message>
        <source>some numbers have a decimal point and others a decimal comma; say which holds</source>
        <translation>manche Zahlen haben einen Dezimalpunkt, andere ein Dezimalkomma; bitte angeben, was gilt</translation>
    </message>
    <message>
        <source>numbers like %1 leave the decimal sign open; say which it is</source>
        <translation>Zahlen wie %1 lassen das Dezimalzeichen offen; bitte angeben, welches es ist</translation>
    </message>
    <message>
        <source>line %1</source>
        <translation>Zeile %1</translation>
    </message>
    <message>
        <source>more than %1 fields</source>
        <translation>mehr als %1 Felder</translation>
    </message>
    <message>
        <source>text stands behind a closing quote</source>
        <translation>hinter einem schließenden Anführungszeichen steht Text</translation>
    </message>
    <message>
        <source>a field is longer than %1 bytes</source>
        <translation>ein Feld ist länger als %1 Bytes</translation>
    </message>
    <message>
        <source>a zero character</source>
        <translation>ein Nullzeichen</translation>
    </message>
    <message>
        <source>a quoted field is too long</source>
        <translation>ein Feld in Anführungszeichen ist zu lang</translation>
    </message>
    <message>
        <source>a quote is not closed</source>
        <translation>ein Anführungszeichen wird nicht geschlossen</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>die Datei ist leer</translation>
    </message>
    <message>
        <source>read as %1, separator tabulator, decimal sign &quot;%2&quot;</source>
        <translation>gelesen als %1, Trennzeichen Tabulator, Dezimalzeichen „%2“</translation>
    </message>
    <message>
        <source>read as %1, separator &quot;%2&quot;, decimal sign &quot;%3&quot;</source>
        <translation>gelesen als %1, Trennzeichen „%2“, Dezimalzeichen „%3“</translation>
    </message>
    <message>
        <source>line %1 has %2 fields, the heading %3</source>
        <translation>Zeile %1 hat %2 Felder, die Überschrift %3</translation>
    </message>
    <message>
        <source>the file is not in %1</source>
        <translation>die Datei ist nicht in %1</translation>
    </message>
    <message>
        <source>the separator can&apos;t be the decimal sign or a quote</source>
        <translation>das Trennzeichen kann nicht das Dezimalzeichen oder ein Anführungszeichen sein</translation>
    </message>
    <message>
        <source>%1 can&apos;t hold all characters of the titles</source>
        <translation>%1 kennt nicht alle Zeichen der Titel</translation>
    </message>
    <message>
        <source>the file can&apos;t be written</source>
        <translation>die Datei kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>a file of this format holds either actions or load cases</source>
        <translation>eine Datei dieses Formats enthält entweder Einwirkungen oder Lastfälle</translation>
    </message>
    <message>
        <source>the project can&apos;t be read whole</source>
        <translation>das Projekt kann nicht ganz gelesen werden</translation>
    </message>
    <message>
        <source>the file is larger than 256 MiB</source>
        <translation>die Datei ist größer als 256 MiB</translation>
    </message>
    <message>
        <source>column &quot;%1&quot; is passed over</source>
        <translation>Spalte „%1“ wird übergangen</translation>
    </message>
    <message>
        <source>line %1: two columns mean &quot;%2&quot;</source>
        <translation>Zeile %1: zwei Spalten bedeuten „%2“</translation>
    </message>
    <message>
        <source>no column is headed &quot;%1&quot;</source>
        <translation>keine Spalte heißt „%1“</translation>
    </message>
    <message>
        <source>the title loses &quot;%1&quot;</source>
        <translation>der Titel verliert „%1“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; of &quot;%2&quot; is no number</source>
        <translation>„%1“ bei „%2“ ist keine Zahl</translation>
    </message>
    <message>
        <source>%1, entry %2 makes no record, or contradicts that under its key</source>
        <translation>%1, Eintrag %2 ergibt keinen Satz oder widerspricht dem unter seinem Schlüssel</translation>
    </message>
    <message>
        <source>the file is no JSON object</source>
        <translation>die Datei ist kein JSON-Objekt</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is neither text nor number</source>
        <translation>%1: „%2“ ist weder Text noch Zahl</translation>
    </message>
    <message>
        <source>the file is no JSON: byte %1 is not expected</source>
        <translation>die Datei ist kein JSON: Byte %1 ist unerwartet</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is passed over</source>
        <translation>„%1“ wird übergangen</translation>
    </message>
    <message>
        <source>%1 is no object</source>
        <translation>%1 ist kein Objekt</translation>
    </message>
    <message>
        <source>&quot;facts&quot; is no object</source>
        <translation>„facts“ ist kein Objekt</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is longer than %3 bytes</source>
        <translation>%1: „%2“ ist länger als %3 Bytes</translation>
    </message>
    <message>
        <source>%1: two entries mean &quot;%2&quot;</source>
        <translation>%1: zwei Einträge bedeuten „%2“</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is no even number of hexadecimal digits</source>
        <translation>%1: „%2“ ist keine gerade Zahl hexadezimaler Ziffern</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is no number of a key</source>
        <translation>%1: „%2“ ist keine Zahl eines Schlüssels</translation>
    </message>
    <message>
        <source>%1 lacks kwh, kwl or bytes</source>
        <translation>%1 fehlt kwh, kwl oder bytes</translation>
    </message>
    <message>
        <source>%1: the key stands twice</source>
        <translation>%1: der Schlüssel steht zweimal da</translation>
    </message>
    <message>
        <source>entry &quot;%1&quot; is passed over</source>
        <translation>Eintrag „%1“ wird übergangen</translation>
    </message>
    <message>
        <source>the file has neither &quot;actions&quot; nor &quot;loadcases&quot;</source>
        <translation>die Datei hat weder „actions“ noch „loadcases“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; takes the value of the action, since a pair is stored whole</source>
        <translation>„%1“ nimmt den Wert der Einwirkung, da ein Paar ganz gespeichert wird</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number of a load case (1 to 999999)</source>
        <translation>„%1“ ist keine Nummer eines Lastfalls (1 bis 999999)</translation>
    </message>
    <message>
        <source>load case %1 belongs to another module</source>
        <translation>Lastfall %1 gehört einem anderen Modul</translation>
    </message>
    <message>
        <source>the title &quot;%1&quot; stands in line %2 already</source>
        <translation>der Titel „%1“ steht schon in Zeile %2</translation>
    </message>
    <message>
        <source>several load cases have the title &quot;%1&quot;</source>
        <translation>mehrere Lastfälle haben den Titel „%1“</translation>
    </message>
    <message>
        <source>load case %1 has another title than &quot;%2&quot;</source>
        <translation>Lastfall %1 hat einen anderen Titel als „%2“</translation>
    </message>
    <message>
        <source>no number up to 999999 is free for &quot;%1&quot;</source>
        <translation>für „%1“ ist keine Nummer bis 999999 frei</translation>
    </message>
    <message>
        <source>load case %1 stands in line %2 already</source>
        <translation>Lastfall %1 steht schon in Zeile %2</translation>
    </message>
    <message>
        <source>a combination has %1 load cases, and one of SAF holds at most %2</source>
        <translation>eine Kombination hat %1 Lastfälle, eine von SAF fasst höchstens %2</translation>
    </message>
    <message>
        <source>combinations are passed over</source>
        <translation>Kombinationen werden übergangen</translation>
    </message>
    <message>
        <source>SAF version %1</source>
        <translation>SAF-Version %1</translation>
    </message>
    <message>
        <source>the model has no SAF version</source>
        <translation>das Modell nennt keine SAF-Version</translation>
    </message>
    <message>
        <source>national code %1</source>
        <translation>nationale Norm %1</translation>
    </message>
    <message>
        <source>the model has no national code</source>
        <translation>das Modell nennt keine nationale Norm</translation>
    </message>
    <message>
        <source>there is no sheet %1</source>
        <translation>es gibt kein Blatt %1</translation>
    </message>
    <message>
        <source>load group &quot;%1&quot; becomes the action %2</source>
        <translation>die Lastgruppe „%1“ wird zur Einwirkung %2</translation>
    </message>
    <message>
        <source>load group %1: no id</source>
        <translation>Lastgruppe %1: keine Id</translation>
    </message>
    <message>
        <source>load case %1</source>
        <translation>Lastfall %1</translation>
    </message>
    <message>
        <source>the name becomes the title</source>
        <translation>der Name wird zum Titel</translation>
    </message>
    <message>
        <source>the description &quot;%1&quot; is dropped</source>
        <translation>die Beschreibung „%1“ entfällt</translation>
    </message>
    <message>
        <source>self weight is told without an amount; DLX, DLY and DLZ stay</source>
        <translation>das Eigengewicht steht ohne Betrag da; DLX, DLY und DLZ bleiben</translation>
    </message>
    <message>
        <source>no id</source>
        <translation>keine Id</translation>
    </message>
    <message>
        <source>there is no load group &quot;%1&quot;</source>
        <translation>es gibt keine Lastgruppe „%1“</translation>
    </message>
    <message>
        <source>its action type is %1, that of its group %2; the group counts</source>
        <translation>seine Einwirkungsart ist %1, die seiner Gruppe %2; die Gruppe zählt</translation>
    </message>
    <message>
        <source>the workbook has no sheet %1 or %2</source>
        <translation>die Arbeitsmappe hat kein Blatt %1 oder %2</translation>
    </message>
    <message>
        <source>action %1</source>
        <translation>Einwirkung %1</translation>
    </message>
    <message>
        <source>all factors</source>
        <translation>alle Beiwerte</translation>
    </message>
    <message>
        <source>the superposition %1 is written as %2 and would be read as %3</source>
        <translation>die Überlagerung %1 wird als %2 geschrieben und würde als %3 gelesen</translation>
    </message>
    <message>
        <source>the partition %1 would be read as %2</source>
        <translation>die Einteilung %1 würde als %2 gelesen</translation>
    </message>
    <message>
        <source>load cases of %1: that they have no action</source>
        <translation>Lastfälle von %1: dass sie keine Einwirkung haben</translation>
    </message>
    <message>
        <source>load group %1</source>
        <translation>Lastgruppe %1</translation>
    </message>
    <message>
        <source>the type &quot;%1&quot; is read as Variable</source>
        <translation>die Art „%1“ wird als Variable gelesen</translation>
    </message>
    <message>
        <source>Together, which is for permanent loads only, is read as PERM</source>
        <translation>Together, was nur für ständige Lasten gilt, wird als PERM gelesen</translation>
    </message>
    <message>
        <source>the relation &quot;%1&quot; is read as %2</source>
        <translation>die Beziehung „%1“ wird als %2 gelesen</translation>
    </message>
    <message>
        <source>the design code %1, for which SAF has no word</source>
        <translation>die Norm %1, für die SAF kein Wort hat</translation>
    </message>
    <message>
        <source>the amounts of dead weight</source>
        <translation>die Beträge des Eigengewichts</translation>
    </message>
    <message>
        <source>the factor</source>
        <translation>der Faktor</translation>
    </message>
    <message>
        <source>its own factors</source>
        <translation>seine eigenen Beiwerte</translation>
    </message>
    <message>
        <source>it is empty</source>
        <translation>es ist leer</translation>
    </message>
    <message>
        <source>sheet &quot;%1&quot;</source>
        <translation>Blatt „%1“</translation>
    </message>
    <message>
        <source>no sheet has a column that is headed &quot;number&quot; or &quot;name&quot;</source>
        <translation>kein Blatt hat eine Spalte, die „number“ oder „name“ heißt</translation>
    </message>
    <message>
        <source>read sheet &quot;%1&quot;</source>
        <translation>Blatt „%1“ gelesen</translation>
    </message>
    <message>
        <source>row %1</source>
        <translation>Zeile %1</translation>
    </message>
    <message>
        <source>a document type is refused</source>
        <translation>ein Dokumenttyp wird abgelehnt</translation>
    </message>
    <message>
        <source>a sheet has rows 1 to 1048576</source>
        <translation>ein Blatt hat die Zeilen 1 bis 1048576</translation>
    </message>
    <message>
        <source>there is no shared string %1</source>
        <translation>es gibt keinen gemeinsamen Text %1</translation>
    </message>
    <message>
        <source>more than %1 columns</source>
        <translation>mehr als %1 Spalten</translation>
    </message>
    <message>
        <source>the workbook lacks %1</source>
        <translation>der Arbeitsmappe fehlt %1</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read: %2</source>
        <translation>%1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>the shared strings are larger than 256 MiB</source>
        <translation>die gemeinsamen Texte sind größer als 256 MiB</translation>
    </message>
    <message>
        <source>the workbook can&apos;t be made: %1</source>
        <translation>die Arbeitsmappe kann nicht erzeugt werden: %1</translation>
    </message>
    <message>
        <source>a sheet of a workbook holds at most 1048575 rows below its heading</source>
        <translation>ein Blatt einer Arbeitsmappe fasst höchstens 1048575 Zeilen unter seiner Überschrift</translation>
    </message>
    <message>
        <source>the zip file can&apos;t be read: %1</source>
        <translation>die Zip-Datei kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>the zip file has more than %1 entries</source>
        <translation>die Zip-Datei hat mehr als %1 Einträge</translation>
    </message>
    <message>
        <source>the directory of the zip file is damaged</source>
        <translation>das Verzeichnis der Zip-Datei ist beschädigt</translation>
    </message>
    <message>
        <source>the entry %1 of the zip file inflates to %2 bytes, which is refused</source>
        <translation>der Eintrag %1 der Zip-Datei wird entpackt %2 Bytes groß, was abgelehnt wird</translation>
    </message>
    <message>
        <source>Comma-separated values</source>
        <translation>Kommagetrennte Werte</translation>
    </message>
    <message>
        <source>Tabulator-separated values</source>
        <translation>Tabulatorgetrennte Werte</translation>
    </message>
    <message>
        <source>SAF workbook: load groups and load cases</source>
        <translation>SAF-Arbeitsmappe: Lastgruppen und Lastfälle</translation>
    </message>
    <message>
        <source>Workbook (XLSX)</source>
        <translation>Arbeitsmappe (XLSX)</translation>
    </message>
</context>
<context>
    <name>KeptQuestion</name>
    <message>
        <source>The design code %1 on this machine differs from the copy in the project.</source>
        <translation>Die Norm %1 auf diesem Rechner weicht von der Kopie im Projekt ab.</translation>
    </message>
    <message>
        <source>There is no readable file of the design code %1 on this machine. The copy in the project holds.</source>
        <translation>Auf diesem Rechner gibt es keine lesbare Datei der Norm %1. Die Kopie im Projekt gilt.</translation>
    </message>
    <message>
        <source>The project names the design code %1 and keeps a copy of another one. The name holds.</source>
        <translation>Das Projekt nennt die Norm %1 und enthält die Kopie einer anderen. Der Name gilt.</translation>
    </message>
    <message>
        <source>The copy of the design code %1 in the project can&apos;t be read. The file holds.</source>
        <translation>Die Kopie der Norm %1 im Projekt ist nicht lesbar. Die Datei gilt.</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Design code</source>
        <translation>Norm</translation>
    </message>
    <message>
        <source>&amp;Go on with the copy</source>
        <translation>&amp;Mit der Kopie weiterarbeiten</translation>
    </message>
    <message>
        <source>&amp;Take the file over...</source>
        <translation>Datei über&amp;nehmen...</translation>
    </message>
</context>
<context>
    <name>ProjectCombinationsText</name>
    <message>
        <source>Nothing is combined before this is mended:</source>
        <translation>Nichts wird kombiniert, bevor dies behoben ist:</translation>
    </message>
    <message>
        <source>The design code can&apos;t be loaded: %1</source>
        <translation>Die Norm kann nicht geladen werden: %1</translation>
    </message>
    <message>
        <source>The design code doesn&apos;t tell how actions are combined.</source>
        <translation>Die Norm sagt nicht, wie Einwirkungen kombiniert werden.</translation>
    </message>
    <message>
        <source>%1 of %2 responses changed; most of all %3, from %4 to %5%6</source>
        <translation>%1 von %2 Größen haben sich geändert, am meisten %3, von %4 auf %5%6</translation>
    </message>
</context>
<context>
    <name>Recovery</name>
    <message>
        <source>Recovery</source>
        <translation>Wiederherstellung</translation>
    </message>
    <message>
        <source>It is left alone as %1.</source>
        <translation>Er bleibt unberührt als %1.</translation>
    </message>
    <message>
        <source>Records that were not saved: %1</source>
        <translation>Nicht gespeicherte Sätze: %1</translation>
    </message>
    <message>
        <source>A manager was open with edits that were not accepted: %1 actions, %2 load cases</source>
        <translation>Ein Manager war mit nicht übernommenen Änderungen offen: %1 Einwirkungen, %2 Lastfälle</translation>
    </message>
    <message>
        <source>Recovering is one step, which can be undone; the file changes when you save.</source>
        <translation>Das Wiederherstellen ist ein Schritt, der rückgängig gemacht werden kann; die Datei ändert sich erst beim Speichern.</translation>
    </message>
    <message>
        <source>The snapshot of a run that ended unexpectedly can&apos;t be read.</source>
        <translation>Der Zwischenstand eines unerwartet beendeten Laufs ist nicht lesbar.</translation>
    </message>
    <message>
        <source>Unsaved changes to %1 from %2 fit no project: the file is gone or is another one.</source>
        <translation>Nicht gespeicherte Änderungen an %1 vom %2 passen zu keinem Projekt: Die Datei fehlt oder ist eine andere.</translation>
    </message>
    <message>
        <source>Unsaved changes to %1 from %2 are older than the file, which was saved since.</source>
        <translation>Nicht gespeicherte Änderungen an %1 vom %2 sind älter als die Datei, die seither gespeichert wurde.</translation>
    </message>
    <message>
        <source>The program ended unexpectedly with unsaved changes to %1. The last snapshot is from %2.</source>
        <translation>Das Programm endete unerwartet mit nicht gespeicherten Änderungen an %1. Der letzte Zwischenstand ist vom %2.</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Delete the snapshot</source>
        <translation>Zwischenstand &amp;löschen</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Später</translation>
    </message>
</context>
<context>
    <name>Workbench</name>
    <message>
        <source>%1 holds no managers.</source>
        <translation>%1 enthält keine Manager.</translation>
    </message>
    <message>
        <source>The default actions could not be stored.</source>
        <translation>Die Standard-Einwirkungen konnten nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Action %1</source>
        <translation>Einwirkung %1</translation>
    </message>
    <message>
        <source>Load case %1</source>
        <translation>Lastfall %1</translation>
    </message>
    <message>
        <source>the project names no design code</source>
        <translation>das Projekt nennt keine Norm</translation>
    </message>
    <message>
        <source>there is no design code &quot;%1&quot; in the folders that are searched</source>
        <translation>in den durchsuchten Ordnern gibt es keine Norm „%1“</translation>
    </message>
    <message>
        <source>%1 new</source>
        <translation>%1 neu</translation>
    </message>
    <message>
        <source>%1 changed</source>
        <translation>%1 geändert</translation>
    </message>
    <message>
        <source>%1 deleted</source>
        <translation>%1 gelöscht</translation>
    </message>
    <message>
        <source>Load cases</source>
        <translation>Lastfälle</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Einwirkungen</translation>
    </message>
    <message>
        <source>The file is larger than 256 MiB.</source>
        <translation>Die Datei ist größer als 256 MiB.</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy with &amp;headings</source>
        <translation>Mit Ü&amp;berschriften kopieren</translation>
    </message>
    <message>
        <source>there is no design code &quot;%1&quot; here</source>
        <translation>hier gibt es keine Norm „%1“</translation>
    </message>
    <message>
        <source>Design code</source>
        <translation>Norm</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::ActionsModel</name>
    <message>
        <source>permanent</source>
        <translation>ständig</translation>
    </message>
    <message>
        <source>prestress</source>
        <translation>Vorspannung</translation>
    </message>
    <message>
        <source>variable, group %1</source>
        <translation>veränderlich, Gruppe %1</translation>
    </message>
    <message>
        <source>variable</source>
        <translation>veränderlich</translation>
    </message>
    <message>
        <source>accidental</source>
        <translation>außergewöhnlich</translation>
    </message>
    <message>
        <source>earthquake</source>
        <translation>Erdbeben</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Einwirkung</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Bezeichnung</translation>
    </message>
    <message>
        <source>Superposition</source>
        <translation>Überlagerung</translation>
    </message>
    <message>
        <source>Partition</source>
        <translation>Einteilung</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::ChangesDialog</name>
    <message>
        <source>Changes</source>
        <translation>Änderungen</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Vorher</translation>
    </message>
    <message>
        <source>After</source>
        <translation>Nachher</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::ChangesModel</name>
    <message>
        <source>Record</source>
        <translation>Satz</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Bemerkung</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::ChangesTable</name>
    <message>
        <source>Changes</source>
        <translation>Änderungen</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::CombinationListModel</name>
    <message>
        <source>Combination</source>
        <translation>Kombination</translation>
    </message>
    <message>
        <source>Leading</source>
        <translation>Führend</translation>
    </message>
    <message>
        <source>Expression</source>
        <translation>Ausdruck</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::CombinationsPage</name>
    <message>
        <source>List</source>
        <translation>Liste</translation>
    </message>
    <message>
        <source>Extremes</source>
        <translation>Extremwerte</translation>
    </message>
    <message>
        <source>&amp;Responses...</source>
        <translation>&amp;Größen...</translation>
    </message>
    <message>
        <source>Save &amp;picture as...</source>
        <translation>&amp;Bild speichern unter...</translation>
    </message>
    <message>
        <source>No responses: a CSV file with a row for each, and a column for each load case.</source>
        <translation>Keine Größen: eine CSV-Datei mit einer Zeile für jede und einer Spalte für jeden Lastfall.</translation>
    </message>
    <message>
        <source>%1: %2 responses</source>
        <translation>%1: %2 Größen</translation>
    </message>
    <message>
        <source>%1 combinations are too many to read. Responses from a file show which of them govern.</source>
        <translation>%1 Kombinationen sind zu viele zum Lesen. Größen aus einer Datei zeigen, welche davon maßgebend sind.</translation>
    </message>
    <message>
        <source>%1: there is no column for %2</source>
        <translation>%1: es fehlt eine Spalte für %2</translation>
    </message>
    <message>
        <source>minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>Choose a response to see its combination.</source>
        <translation>Wählen Sie eine Größe, um ihre Kombination zu sehen.</translation>
    </message>
    <message>
        <source>Open responses</source>
        <translation>Größen öffnen</translation>
    </message>
    <message>
        <source>Responses (*.csv *.txt);;All files (*)</source>
        <translation>Größen (*.csv *.txt);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Save the picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Pictures (*.svg);;All files (*)</source>
        <translation>Bilder (*.svg);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Situations</source>
        <translation>Situationen</translation>
    </message>
    <message>
        <source>Combinations</source>
        <translation>Kombinationen</translation>
    </message>
    <message>
        <source>Terms of the combination</source>
        <translation>Glieder der Kombination</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::ConflictDialog</name>
    <message>
        <source>Save project</source>
        <translation>Projekt speichern</translation>
    </message>
    <message>
        <source>Another program has changed this project since it was opened.</source>
        <translation>Ein anderes Programm hat dieses Projekt geändert, seit es geöffnet wurde.</translation>
    </message>
    <message>
        <source>In the file</source>
        <translation>In der Datei</translation>
    </message>
    <message>
        <source>Here</source>
        <translation>Hier</translation>
    </message>
    <message>
        <source>Overwriting replaces the actions and load cases of the file by those shown here. &quot;Save as&quot; keeps both. Reloading gives up what is here, and can be undone.</source>
        <translation>Überschreiben ersetzt die Einwirkungen und Lastfälle der Datei durch die hier gezeigten. „Speichern unter“ behält beide. Neu laden gibt auf, was hier steht, und lässt sich rückgängig machen.</translation>
    </message>
    <message>
        <source>&amp;Reload</source>
        <translation>&amp;Neu laden</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>Speichern &amp;unter ...</translation>
    </message>
    <message>
        <source>&amp;Overwrite</source>
        <translation>Ü&amp;berschreiben</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::DocumentHistory</name>
    <message>
        <source>The project was changed outside of its history; the earlier steps can&apos;t be undone any more.</source>
        <translation>Das Projekt wurde außerhalb seines Verlaufs geändert; die früheren Schritte lassen sich nicht mehr rückgängig machen.</translation>
    </message>
    <message>
        <source>The oldest steps can&apos;t be undone any more: %1</source>
        <translation>Die ältesten Schritte lassen sich nicht mehr rückgängig machen: %1</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::ExportDialog</name>
    <message>
        <source>&amp;Version:</source>
        <translation>&amp;Version:</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>E&amp;xport</source>
        <translation>E&amp;xportieren</translation>
    </message>
    <message>
        <source>&amp;Format:</source>
        <translation>&amp;Format:</translation>
    </message>
    <message>
        <source>&amp;Content:</source>
        <translation>&amp;Inhalt:</translation>
    </message>
    <message>
        <source>F&amp;ile:</source>
        <translation>&amp;Datei:</translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation>D&amp;urchsuchen ...</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>the whole project</source>
        <translation>das ganze Projekt</translation>
    </message>
    <message>
        <source>load cases</source>
        <translation>Lastfälle</translation>
    </message>
    <message>
        <source>actions</source>
        <translation>Einwirkungen</translation>
    </message>
    <message>
        <source>The file tells all values.</source>
        <translation>Die Datei enthält alle Werte.</translation>
    </message>
    <message>
        <source>What the file won&apos;t tell (%1):</source>
        <translation>Was die Datei nicht enthält (%1):</translation>
    </message>
    <message>
        <source>The project itself can&apos;t be the file to write.</source>
        <translation>Das Projekt selbst kann nicht die Zieldatei sein.</translation>
    </message>
    <message>
        <source>%1 exists. Should it be replaced?</source>
        <translation>%1 ist vorhanden. Soll die Datei ersetzt werden?</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::ExtremesModel</name>
    <message>
        <source>Response</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>Governing combination</source>
        <translation>Maßgebende Kombination</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::FindTable</name>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::FindingsModel</name>
    <message>
        <source>Where</source>
        <translation>Wo</translation>
    </message>
    <message>
        <source>Finding</source>
        <translation>Befund</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::HeadingChoices</name>
    <message>
        <source>Column of the file</source>
        <translation>Spalte der Datei</translation>
    </message>
    <message>
        <source>Means</source>
        <translation>Bedeutet</translation>
    </message>
    <message>
        <source>(passed over)</source>
        <translation>(übergangen)</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::HistoryPanel</name>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>&amp;Go there</source>
        <translation>&amp;Dorthin</translation>
    </message>
    <message>
        <source>C&amp;hanges...</source>
        <translation>&amp;Änderungen...</translation>
    </message>
    <message>
        <source>Steps</source>
        <translation>Schritte</translation>
    </message>
    <message>
        <source>Undoes or does again until this step is the last one</source>
        <translation>Macht rückgängig oder wiederholt, bis dieser Schritt der letzte ist</translation>
    </message>
    <message>
        <source>Lists each record that the step changed, with old and new values</source>
        <translation>Zeigt jeden Satz, den der Schritt geändert hat, mit altem und neuem Wert</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>The project as it was opened</source>
        <translation>Das Projekt, wie es geöffnet wurde</translation>
    </message>
    <message>
        <source>%1  %2 (records: %3)</source>
        <translation>%1  %2 (Sätze: %3)</translation>
    </message>
    <message>
        <source>%1, undone</source>
        <translation>%1, rückgängig gemacht</translation>
    </message>
    <message>
        <source>&amp;Undo: %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo: %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::ImportDialog</name>
    <message>
        <source>Tables (%1)</source>
        <translation>Tabellen (%1)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Take missing &amp;actions from the design code</source>
        <translation>Fehlende &amp;Einwirkungen aus der Norm nehmen</translation>
    </message>
    <message>
        <source>Leave &amp;out refused rows</source>
        <translation>Ab&amp;gelehnte Zeilen auslassen</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Import</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>Spalten</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Hinweise</translation>
    </message>
    <message>
        <source>automatic</source>
        <translation>automatisch</translation>
    </message>
    <message>
        <source>load cases</source>
        <translation>Lastfälle</translation>
    </message>
    <message>
        <source>actions</source>
        <translation>Einwirkungen</translation>
    </message>
    <message>
        <source>their number</source>
        <translation>ihrer Nummer</translation>
    </message>
    <message>
        <source>their title</source>
        <translation>ihrem Titel</translation>
    </message>
    <message>
        <source>F&amp;ile:</source>
        <translation>&amp;Datei:</translation>
    </message>
    <message>
        <source>&amp;Format:</source>
        <translation>&amp;Format:</translation>
    </message>
    <message>
        <source>&amp;Content:</source>
        <translation>&amp;Inhalt:</translation>
    </message>
    <message>
        <source>Load cases are found &amp;by</source>
        <translation>Lastfälle finden sich &amp;nach</translation>
    </message>
    <message>
        <source>B&amp;rowse...</source>
        <translation>D&amp;urchsuchen...</translation>
    </message>
    <message>
        <source>&amp;Show:</source>
        <translation>An&amp;zeigen:</translation>
    </message>
    <message>
        <source>I&amp;mport</source>
        <translation>I&amp;mportieren</translation>
    </message>
    <message>
        <source>Notes (%1)</source>
        <translation>Hinweise (%1)</translation>
    </message>
    <message>
        <source>automatic: %1</source>
        <translation>auto: %1</translation>
    </message>
    <message>
        <source>all rows (%1)</source>
        <translation>alle Zeilen (%1)</translation>
    </message>
    <message>
        <source>Importing...</source>
        <translation>Importieren...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Cancelled; the project is as it was.</source>
        <translation>Abgebrochen; das Projekt ist, wie es war.</translation>
    </message>
    <message>
        <source>The rows could not be written. The project is as it was.</source>
        <translation>Die Zeilen konnten nicht geschrieben werden. Das Projekt ist, wie es war.</translation>
    </message>
    <message>
        <source>Import of %1</source>
        <translation>Import von %1</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::InputPage</name>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Sa&amp;ve text as...</source>
        <translation>&amp;Text speichern unter ...</translation>
    </message>
    <message>
        <source>Save the generated input</source>
        <translation>Erzeugte Eingabe speichern</translation>
    </message>
    <message>
        <source>Input text (*.dat);;All files (*)</source>
        <translation>Eingabetext (*.dat);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Generated input</source>
        <translation>Erzeugte Eingabe</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::LoadCasesModel</name>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>The current load case</source>
        <translation>Der aktuelle Lastfall</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Einwirkung</translation>
    </message>
    <message>
        <source>Factor of the action %1</source>
        <translation>Beiwert der Einwirkung %1</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::MainWindow</name>
    <message>
        <source>Projects (*.cdb);;All files (*)</source>
        <translation>Projekte (*.cdb);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Open project</source>
        <translation>Projekt öffnen</translation>
    </message>
    <message>
        <source>New project</source>
        <translation>Neues Projekt</translation>
    </message>
    <message>
        <source>Save project</source>
        <translation>Projekt speichern</translation>
    </message>
    <message>
        <source>Another program has changed this project since it was opened.</source>
        <translation>Ein anderes Programm hat dieses Projekt geändert, seit es geöffnet wurde.</translation>
    </message>
    <message>
        <source>Overwriting replaces its actions and load cases by those shown here. &quot;Save as&quot; keeps both.</source>
        <translation>Überschreiben ersetzt dessen Einwirkungen und Lastfälle durch die hier gezeigten. „Speichern unter“ behält beide.</translation>
    </message>
    <message>
        <source>&amp;Overwrite</source>
        <translation>Ü&amp;berschreiben</translation>
    </message>
    <message>
        <source>Save project as</source>
        <translation>Projekt speichern unter</translation>
    </message>
    <message>
        <source>Saved.</source>
        <translation>Gespeichert.</translation>
    </message>
    <message>
        <source>Unsaved changes</source>
        <translation>Ungespeicherte Änderungen</translation>
    </message>
    <message>
        <source>%1 has unsaved changes. Should they be saved?</source>
        <translation>%1 hat ungespeicherte Änderungen. Sollen sie gespeichert werden?</translation>
    </message>
    <message>
        <source>The managers can&apos;t be loaded: %1</source>
        <translation>Die Manager können nicht geladen werden: %1</translation>
    </message>
    <message>
        <source>The managers need the design code of the project, which can&apos;t be loaded: %1</source>
        <translation>Die Manager brauchen die Norm des Projekts, die nicht geladen werden kann: %1</translation>
    </message>
    <message>
        <source>Managers</source>
        <translation>Manager</translation>
    </message>
    <message>
        <source>Marlavon Workbench</source>
        <translation>Marlavon Werkbank</translation>
    </message>
    <message>
        <source>%1[*] (read-only) - Marlavon Workbench</source>
        <translation>%1[*] (schreibgeschützt) - Marlavon Werkbank</translation>
    </message>
    <message>
        <source>%1[*] - Marlavon Workbench</source>
        <translation>%1[*] - Marlavon Werkbank</translation>
    </message>
    <message>
        <source>About the Marlavon Workbench</source>
        <translation>Über die Marlavon Werkbank</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Marlavon Workbench %1&lt;/h3&gt;&lt;p&gt;Edits the actions and load cases of structural models.&lt;/p&gt;&lt;p&gt;Check every design code against the printed standard before you rely on it.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Marlavon Werkbank %1&lt;/h3&gt;&lt;p&gt;Bearbeitet Einwirkungen und Lastfälle von Tragwerksmodellen.&lt;/p&gt;&lt;p&gt;Prüfen Sie jede Norm gegen die gedruckte Fassung, bevor Sie sich auf sie verlassen.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&amp;New...</source>
        <translation>&amp;Neu ...</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen ...</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>Speichern &amp;unter ...</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Action Manager...</source>
        <translation>&amp;Einwirkungs-Manager ...</translation>
    </message>
    <message>
        <source>&amp;Load-case Manager...</source>
        <translation>&amp;Lastfall-Manager ...</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Tasks</source>
        <translation>&amp;Aufgaben</translation>
    </message>
    <message>
        <source>&amp;Extras</source>
        <translation>E&amp;xtras</translation>
    </message>
    <message>
        <source>&amp;Settings...</source>
        <translation>&amp;Einstellungen ...</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Actions and load cases</source>
        <translation>&amp;Einwirkungen und Lastfälle</translation>
    </message>
    <message>
        <source>A&amp;bout</source>
        <translation>&amp;Über</translation>
    </message>
    <message>
        <source>About &amp;Qt</source>
        <translation>Über &amp;Qt</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>Summary</source>
        <translation>Übersicht</translation>
    </message>
    <message>
        <source>Generated input</source>
        <translation>Erzeugte Eingabe</translation>
    </message>
    <message>
        <source>The project has one finding.</source>
        <translation>Das Projekt hat einen Befund.</translation>
    </message>
    <message>
        <source>The project has %1 findings.</source>
        <translation>Das Projekt hat %1 Befunde.</translation>
    </message>
    <message>
        <source>It can be saved all the same.</source>
        <translation>Es kann trotzdem gespeichert werden.</translation>
    </message>
    <message>
        <source>Show &amp;findings</source>
        <translation>&amp;Befunde zeigen</translation>
    </message>
    <message>
        <source>%1 from %2 (factor %3)</source>
        <translation>%1 von %2 (Faktor %3)</translation>
    </message>
    <message>
        <source>Nothing was changed.</source>
        <translation>Es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>The loads of copies belong to other modules: %1.</source>
        <translation>Die Lasten von Kopien gehören anderen Modulen: %1.</translation>
    </message>
    <message>
        <source>Delete unused load cases</source>
        <translation>Unbenutzte Lastfälle löschen</translation>
    </message>
    <message>
        <source>No load case is unused.</source>
        <translation>Kein Lastfall ist unbenutzt.</translation>
    </message>
    <message>
        <source>%1 load cases carry no dead weight, are no imperfection, and no other module holds anything under their numbers. Should they be deleted?</source>
        <translation>%1 Lastfälle tragen kein Eigengewicht, sind keine Imperfektion, und kein anderes Modul hält etwas unter ihren Nummern. Sollen sie gelöscht werden?</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Deleted load cases: %1</source>
        <translation>Gelöschte Lastfälle: %1</translation>
    </message>
    <message>
        <source>The load cases could not be deleted. The project is as it was.</source>
        <translation>Die Lastfälle konnten nicht gelöscht werden. Das Projekt ist, wie es war.</translation>
    </message>
    <message>
        <source>Combinations</source>
        <translation>Kombinationen</translation>
    </message>
    <message>
        <source>Acceptance in the managers</source>
        <translation>Übernahme in den Managern</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Neu laden</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Recovery of unsaved changes</source>
        <translation>Wiederherstellung nicht gespeicherter Änderungen</translation>
    </message>
    <message>
        <source>Recovery</source>
        <translation>Wiederherstellung</translation>
    </message>
    <message>
        <source>Recovered; Ctrl+Z takes it back.</source>
        <translation>Wiederhergestellt; Strg+Z macht es rückgängig.</translation>
    </message>
    <message>
        <source>Rewritten, edited by nobody: %1.</source>
        <translation>Neu geschrieben, von niemandem geändert: %1.</translation>
    </message>
    <message>
        <source>Deletion of unused load cases: %1</source>
        <translation>Löschen unbenutzter Lastfälle: %1</translation>
    </message>
    <message>
        <source>Written: %1</source>
        <translation>Geschrieben: %1</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Import</translation>
    </message>
    <message>
        <source>An import needs the design code of the project, which can&apos;t be loaded: %1</source>
        <translation>Ein Import braucht die Norm des Projekts, die sich nicht laden lässt: %1</translation>
    </message>
    <message>
        <source>Imported: %1</source>
        <translation>Importiert: %1</translation>
    </message>
    <message>
        <source>&amp;Import...</source>
        <translation>&amp;Importieren...</translation>
    </message>
    <message>
        <source>&amp;Export...</source>
        <translation>&amp;Exportieren...</translation>
    </message>
    <message>
        <source>Another design code</source>
        <translation>Andere Norm</translation>
    </message>
    <message>
        <source>The design code is %1 now.</source>
        <translation>Die Norm ist jetzt %1.</translation>
    </message>
    <message>
        <source>Design code</source>
        <translation>Norm</translation>
    </message>
    <message>
        <source>Saving the project keeps its design code in it.</source>
        <translation>Beim Speichern behält das Projekt seine Norm.</translation>
    </message>
    <message>
        <source>Another &amp;design code...</source>
        <translation>Andere &amp;Norm...</translation>
    </message>
    <message>
        <source>&amp;Keep the design code in the project</source>
        <translation>Norm im Projekt &amp;behalten</translation>
    </message>
    <message>
        <source>Keeping the design code</source>
        <translation>Norm behalten</translation>
    </message>
    <message>
        <source>&amp;Manual</source>
        <translation>&amp;Handbuch</translation>
    </message>
    <message>
        <source>Re&amp;port...</source>
        <translation>&amp;Bericht...</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::NewProjectDialog</name>
    <message>
        <source>Store the &amp;default actions of the design code</source>
        <translation>&amp;Standard-Einwirkungen der Norm speichern</translation>
    </message>
    <message>
        <source>New project</source>
        <translation>Neues Projekt</translation>
    </message>
    <message>
        <source>&amp;File:</source>
        <translation>&amp;Datei:</translation>
    </message>
    <message>
        <source>Design &amp;code:</source>
        <translation>&amp;Norm:</translation>
    </message>
    <message>
        <source>&amp;System:</source>
        <translation>S&amp;ystem:</translation>
    </message>
    <message>
        <source>&amp;Gravity:</source>
        <translation>Sch&amp;werkraft:</translation>
    </message>
    <message>
        <source>C&amp;reate</source>
        <translation>&amp;Anlegen</translation>
    </message>
    <message>
        <source>project</source>
        <translation>projekt</translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation>D&amp;urchsuchen ...</translation>
    </message>
    <message>
        <source>Spatial structure</source>
        <translation>Räumliches Tragwerk</translation>
    </message>
    <message>
        <source>Plane structure</source>
        <translation>Ebenes Tragwerk</translation>
    </message>
    <message>
        <source>Plate</source>
        <translation>Platte</translation>
    </message>
    <message>
        <source>File of the new project</source>
        <translation>Datei des neuen Projekts</translation>
    </message>
    <message>
        <source>Projects (*.cdb)</source>
        <translation>Projekte (*.cdb)</translation>
    </message>
    <message>
        <source>%1 exists. Should it be replaced?</source>
        <translation>%1 ist vorhanden. Soll die Datei ersetzt werden?</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::PlanModel</name>
    <message>
        <source>added</source>
        <translation>neu</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
    <message>
        <source>unchanged</source>
        <translation>unverändert</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>abgelehnt</translation>
    </message>
    <message>
        <source>action</source>
        <translation>Einwirkung</translation>
    </message>
    <message>
        <source>load case</source>
        <translation>Lastfall</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Changes</source>
        <translation>Änderungen</translation>
    </message>
    <message>
        <source>Reasons and losses</source>
        <translation>Gründe und Verluste</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::RecodeDialog</name>
    <message>
        <source>&amp;Dead weight along the old direction of gravity acts along the new one</source>
        <translation>&amp;Eigengewicht in der alten Schwererichtung wirkt in der neuen</translation>
    </message>
    <message>
        <source>Another design code</source>
        <translation>Andere Norm</translation>
    </message>
    <message>
        <source>Design &amp;code:</source>
        <translation>&amp;Norm:</translation>
    </message>
    <message>
        <source>&amp;System:</source>
        <translation>S&amp;ystem:</translation>
    </message>
    <message>
        <source>&amp;Gravity:</source>
        <translation>Sch&amp;werkraft:</translation>
    </message>
    <message>
        <source>What changes</source>
        <translation>Was sich ändert</translation>
    </message>
    <message>
        <source>Spatial structure</source>
        <translation>Räumliches Tragwerk</translation>
    </message>
    <message>
        <source>Plane structure</source>
        <translation>Ebenes Tragwerk</translation>
    </message>
    <message>
        <source>Plate</source>
        <translation>Platte</translation>
    </message>
    <message>
        <source>Load cases that change: %1</source>
        <translation>Geänderte Lastfälle: %1</translation>
    </message>
    <message>
        <source>Not possible: %1</source>
        <translation>Nicht möglich: %1</translation>
    </message>
    <message>
        <source>What %1 becomes</source>
        <translation>Was aus %1 wird</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::RecodeModel</name>
    <message>
        <source>takes the new default</source>
        <translation>nimmt die neue Vorgabe</translation>
    </message>
    <message>
        <source>keeps its values</source>
        <translation>behält ihre Werte</translation>
    </message>
    <message>
        <source>stays as an own action</source>
        <translation>bleibt als eigene Einwirkung</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Einwirkung</translation>
    </message>
    <message>
        <source>Becomes</source>
        <translation>Wird zu</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Was</translation>
    </message>
    <message>
        <source>Changes</source>
        <translation>Änderungen</translation>
    </message>
    <message>
        <source>Lost on OK</source>
        <translation>Entfällt mit OK</translation>
    </message>
    <message>
        <source>Breaks</source>
        <translation>Verletzt</translation>
    </message>
    <message>
        <source>Load cases</source>
        <translation>Lastfälle</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::ReportDialog</name>
    <message>
        <source>Report</source>
        <translation>Bericht</translation>
    </message>
    <message>
        <source>Page of the report</source>
        <translation>Seite des Berichts</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation>Vorige Seite</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>Nächste Seite</translation>
    </message>
    <message>
        <source>of %1</source>
        <translation>von %1</translation>
    </message>
    <message>
        <source>Save as &amp;PDF...</source>
        <translation>Als &amp;PDF speichern...</translation>
    </message>
    <message>
        <source>Save as &amp;HTML...</source>
        <translation>Als &amp;HTML speichern...</translation>
    </message>
    <message>
        <source>Save the report</source>
        <translation>Bericht speichern</translation>
    </message>
    <message>
        <source>PDF (*.pdf)</source>
        <translation>PDF (*.pdf)</translation>
    </message>
    <message>
        <source>HTML (*.html *.htm)</source>
        <translation>HTML (*.html *.htm)</translation>
    </message>
    <message>
        <source>The project itself can&apos;t be the file to write.</source>
        <translation>Das Projekt selbst kann nicht die Zieldatei sein.</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::SettingsDialog</name>
    <message>
        <source>&amp;Experimental functions</source>
        <translation>&amp;Experimentelle Funktionen</translation>
    </message>
    <message>
        <source>&amp;Restricted run mode</source>
        <translation>Ein&amp;geschränkter Betrieb</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>&amp;Sprache:</translation>
    </message>
    <message>
        <source>A change of the language holds from the next start.</source>
        <translation>Eine andere Sprache gilt ab dem nächsten Start.</translation>
    </message>
    <message>
        <source>Functions:</source>
        <translation>Funktionen:</translation>
    </message>
    <message>
        <source>Shows commands that are still on trial, such as &quot;ADD ALL&quot; in the Action Manager.</source>
        <translation>Zeigt Befehle, die noch erprobt werden, etwa „ALLE HINZUFÜGEN“ im Einwirkungs-Manager.</translation>
    </message>
    <message>
        <source>The Action Manager then offers the actions of the design code only.</source>
        <translation>Der Einwirkungs-Manager bietet dann nur die Einwirkungen der Norm an.</translation>
    </message>
    <message>
        <source>&amp;More than the plain managers</source>
        <translation>&amp;Mehr als die schlichten Manager</translation>
    </message>
    <message>
        <source>&amp;One tab a task</source>
        <translation>&amp;Ein Register je Aufgabe</translation>
    </message>
    <message>
        <source>Undo and redo, search, filter and a list of findings in the managers. The workbench tells what an OK has changed.</source>
        <translation>Rückgängig und Wiederherstellen, Suche, Filter und eine Liste der Befunde in den Managern. Die Werkbank sagt, was ein OK geändert hat.</translation>
    </message>
    <message>
        <source>Each task then opens its own tab. With both tabs, deleting an action shows which load cases use it.</source>
        <translation>Jede Aufgabe öffnet dann nur ihr eigenes Register. Mit beiden Registern zeigt das Löschen einer Einwirkung, welche Lastfälle sie benutzen.</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::SituationsModel</name>
    <message>
        <source>Situation</source>
        <translation>Situation</translation>
    </message>
    <message>
        <source>Clause</source>
        <translation>Abschnitt</translation>
    </message>
    <message>
        <source>Expression</source>
        <translation>Ausdruck</translation>
    </message>
    <message>
        <source>Combinations</source>
        <translation>Kombinationen</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::StartPage</name>
    <message>
        <source>Marlavon Workbench</source>
        <translation>Marlavon Werkbank</translation>
    </message>
    <message>
        <source>Actions and load cases of structural models</source>
        <translation>Einwirkungen und Lastfälle von Tragwerksmodellen</translation>
    </message>
    <message>
        <source>New project</source>
        <translation>Neues Projekt</translation>
    </message>
    <message>
        <source>Choose design code, system and gravity</source>
        <translation>Norm, System und Schwerkraft wählen</translation>
    </message>
    <message>
        <source>Open project</source>
        <translation>Projekt öffnen</translation>
    </message>
    <message>
        <source>Open a project file (*.cdb)</source>
        <translation>Eine Projektdatei (*.cdb) öffnen</translation>
    </message>
    <message>
        <source>Recent projects</source>
        <translation>Zuletzt geöffnete Projekte</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::SummaryPage</name>
    <message>
        <source>plane structure</source>
        <translation>ebenes Tragwerk</translation>
    </message>
    <message>
        <source>plate</source>
        <translation>Platte</translation>
    </message>
    <message>
        <source>spatial structure</source>
        <translation>räumliches Tragwerk</translation>
    </message>
    <message>
        <source>No actions are stored yet. The managers start with the default actions of the design code; OK stores them.</source>
        <translation>Noch sind keine Einwirkungen gespeichert. Die Manager beginnen mit den Standard-Einwirkungen der Norm; OK speichert sie.</translation>
    </message>
    <message>
        <source>Design code:</source>
        <translation>Norm:</translation>
    </message>
    <message>
        <source>System:</source>
        <translation>System:</translation>
    </message>
    <message>
        <source>Gravity:</source>
        <translation>Schwerkraft:</translation>
    </message>
    <message>
        <source>Current load case:</source>
        <translation>Aktueller Lastfall:</translation>
    </message>
    <message>
        <source>can&apos;t be loaded: %1</source>
        <translation>kann nicht geladen werden: %1</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>Actions (%1)</source>
        <translation>Einwirkungen (%1)</translation>
    </message>
    <message>
        <source>Load cases (%1)</source>
        <translation>Lastfälle (%1)</translation>
    </message>
    <message>
        <source>Numbers that belong to other modules: %1</source>
        <translation>Nummern, die anderen Modulen gehören: %1</translation>
    </message>
    <message>
        <source>Findings (%1)</source>
        <translation>Befunde (%1)</translation>
    </message>
    <message>
        <source>Findings (not checked)</source>
        <translation>Befunde (nicht geprüft)</translation>
    </message>
    <message>
        <source>none</source>
        <comment>load case</comment>
        <translation>keiner</translation>
    </message>
    <message>
        <source>Check again</source>
        <translation>Neu prüfen</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Einwirkungen</translation>
    </message>
    <message>
        <source>Load cases</source>
        <translation>Lastfälle</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>Befunde</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::TaskPanel</name>
    <message>
        <source>Action Manager</source>
        <translation>Einwirkungs-Manager</translation>
    </message>
    <message>
        <source>Load-case Manager</source>
        <translation>Lastfall-Manager</translation>
    </message>
    <message>
        <source>Tasks</source>
        <translation>Aufgaben</translation>
    </message>
    <message>
        <source>no actions yet</source>
        <translation>noch keine Einwirkungen</translation>
    </message>
    <message>
        <source>1 action</source>
        <translation>1 Einwirkung</translation>
    </message>
    <message>
        <source>%1 actions</source>
        <translation>%1 Einwirkungen</translation>
    </message>
    <message>
        <source>no load cases yet</source>
        <translation>noch keine Lastfälle</translation>
    </message>
    <message>
        <source>1 load case</source>
        <translation>1 Lastfall</translation>
    </message>
    <message>
        <source>%1 load cases</source>
        <translation>%1 Lastfälle</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::TermsModel</name>
    <message>
        <source>Load case</source>
        <translation>Lastfall</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Einwirkung</translation>
    </message>
    <message>
        <source>Acts as</source>
        <translation>Wirkt als</translation>
    </message>
    <message>
        <source>Factor</source>
        <translation>Beiwert</translation>
    </message>
    <message>
        <source>Where it comes from</source>
        <translation>Herkunft</translation>
    </message>
    <message>
        <source>Response</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Contribution</source>
        <translation>Anteil</translation>
    </message>
</context>
<context>
    <name>mrl::workbench::TextFormFields</name>
    <message>
        <source>comma ,</source>
        <translation>Komma ,</translation>
    </message>
    <message>
        <source>semicolon ;</source>
        <translation>Semikolon ;</translation>
    </message>
    <message>
        <source>tabulator</source>
        <translation>Tabulator</translation>
    </message>
    <message>
        <source>point .</source>
        <translation>Punkt .</translation>
    </message>
    <message>
        <source>automatic</source>
        <translation>automatisch</translation>
    </message>
    <message>
        <source>automatic: %1</source>
        <translation>auto: %1</translation>
    </message>
    <message>
        <source>&amp;Encoding:</source>
        <translation>&amp;Kodierung:</translation>
    </message>
    <message>
        <source>Se&amp;parator:</source>
        <translation>&amp;Trennzeichen:</translation>
    </message>
    <message>
        <source>&amp;Decimal sign:</source>
        <translation>Dezimal&amp;zeichen:</translation>
    </message>
</context>
</TS>
