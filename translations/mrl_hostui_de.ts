<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Failure</name>
    <message>
        <source>There is no such file or folder.</source>
        <translation>Die Datei oder den Ordner gibt es nicht.</translation>
    </message>
    <message>
        <source>The file exists already.</source>
        <translation>Die Datei gibt es schon.</translation>
    </message>
    <message>
        <source>The file is no project.</source>
        <translation>Die Datei ist kein Projekt.</translation>
    </message>
    <message>
        <source>The project was written by a newer version of this program.</source>
        <translation>Das Projekt stammt von einer neueren Version dieses Programms.</translation>
    </message>
    <message>
        <source>The project is damaged.</source>
        <translation>Das Projekt ist beschädigt.</translation>
    </message>
    <message>
        <source>The file or its folder is read-only.</source>
        <translation>Die Datei oder ihr Ordner ist schreibgeschützt.</translation>
    </message>
    <message>
        <source>The disk is full.</source>
        <translation>Der Datenträger ist voll.</translation>
    </message>
    <message>
        <source>Another program is using the project.</source>
        <translation>Ein anderes Programm benutzt das Projekt gerade.</translation>
    </message>
    <message>
        <source>The project could not be read or written.</source>
        <translation>Das Projekt konnte nicht gelesen oder geschrieben werden.</translation>
    </message>
    <message>
        <source>The project lies on a network folder and can only be read there.</source>
        <translation>Das Projekt liegt in einem Netzwerkordner und kann dort nur gelesen werden.</translation>
    </message>
    <message>
        <source>There is no memory left.</source>
        <translation>Der Arbeitsspeicher reicht nicht aus.</translation>
    </message>
</context>
<context>
    <name>MRL_H_Dialog</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Explains this window (F1)</source>
        <translation>Erklärt dieses Fenster (F1)</translation>
    </message>
    <message>
        <source>A part of the project could not be read, and saving would delete it.</source>
        <translation>Ein Teil des Projekts konnte nicht gelesen werden; Speichern würde ihn löschen.</translation>
    </message>
    <message>
        <source>Saving failed.</source>
        <translation>Das Speichern ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>%1 The project is as it was before, and your input is still here.

%2</source>
        <translation>%1 Das Projekt ist wie zuvor, und Ihre Eingaben sind noch da.

%2</translation>
    </message>
    <message>
        <source>Not saved</source>
        <translation>Nicht gespeichert</translation>
    </message>
    <message>
        <source>Saves and closes (Ctrl+Enter)</source>
        <translation>Speichert und schließt (Strg+Eingabe)</translation>
    </message>
</context>
<context>
    <name>MRL_H_Generators</name>
    <message>
        <source>made anew with each run, changes made here are lost</source>
        <translation>wird bei jedem Lauf neu erzeugt, Änderungen hier gehen verloren</translation>
    </message>
</context>
<context>
    <name>MRL_H_TableWidget</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Wrong: %1</source>
        <translation>Falsch: %1</translation>
    </message>
    <message>
        <source>Copy with headers</source>
        <translation>Mit Überschriften kopieren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Fill down</source>
        <translation>Nach unten ausfüllen</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Fit columns</source>
        <translation>Spalten anpassen</translation>
    </message>
    <message>
        <source>New row</source>
        <translation>Neue Zeile</translation>
    </message>
    <message>
        <source>Delete rows</source>
        <translation>Zeilen löschen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number.</source>
        <translation>„%1“ ist keine Zahl.</translation>
    </message>
    <message>
        <source>%1 is not between %2 and %3.</source>
        <translation>%1 liegt nicht zwischen %2 und %3.</translation>
    </message>
    <message>
        <source>%1 is no whole number.</source>
        <translation>%1 ist keine ganze Zahl.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is none of the choices.</source>
        <translation>„%1“ steht nicht zur Wahl.</translation>
    </message>
    <message>
        <source>The cell holds &quot;%1&quot; now.</source>
        <translation>Die Zelle enthält jetzt „%1“.</translation>
    </message>
    <message>
        <source>The cell can&apos;t be changed.</source>
        <translation>Die Zelle lässt sich nicht ändern.</translation>
    </message>
    <message>
        <source>There is no column for it.</source>
        <translation>Dafür gibt es keine Spalte.</translation>
    </message>
</context>
<context>
    <name>MRL_QT_AdvancedSlider</name>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
</context>
<context>
    <name>MRL_QT_BusyDialog</name>
    <message>
        <source>Please wait</source>
        <translation>Bitte warten</translation>
    </message>
</context>
<context>
    <name>MRL_QT_Ok</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>mrl::ui::HelpWindow</name>
    <message>
        <source>There is no help on &quot;%1&quot; in the book &quot;%2&quot;.</source>
        <translation>Im Buch „%2“ gibt es keine Hilfe zu „%1“.</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Find:</source>
        <translation>Suchen:</translation>
    </message>
    <message>
        <source>Word in this page</source>
        <translation>Wort auf dieser Seite</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Help: %1</source>
        <translation>Hilfe: %1</translation>
    </message>
</context>
</TS>
