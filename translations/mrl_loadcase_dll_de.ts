<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ActionManagerPlugin</name>
    <message>
        <source>Marlavon Action Manager</source>
        <translation>Marlavon Einwirkungs-Manager</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Einwirkungen</translation>
    </message>
</context>
<context>
    <name>LCM_ActionsWidget</name>
    <message>
        <source>%1 has to be bigger than 0.0!</source>
        <translation>%1 muss größer als 0.0 sein!</translation>
    </message>
    <message>
        <source>%1 has to be between %2 and %3!</source>
        <translation>%1 muss zwischen %2 und %3 liegen!</translation>
    </message>
    <message>
        <source>G (Permanent)</source>
        <translation>G (Ständig)</translation>
    </message>
    <message>
        <source>P (Prestress)</source>
        <translation>P (Vorspannung)</translation>
    </message>
    <message>
        <source>Q (Variable)</source>
        <translation>Q (Veränderlich)</translation>
    </message>
    <message>
        <source>A (Accidental)</source>
        <translation>A (Außergewöhnlich)</translation>
    </message>
    <message>
        <source>E (Earthquake)</source>
        <translation>E (Erdbeben)</translation>
    </message>
    <message>
        <source>Q_1 (Variable) Loadgroup 1</source>
        <translation>Q_1 (Veränderlich) Lastgruppe 1</translation>
    </message>
    <message>
        <source>Q_2 (Variable) Loadgroup 2</source>
        <translation>Q_2 (Veränderlich) Lastgruppe 2</translation>
    </message>
    <message>
        <source>Q_3 (Variable) Loadgroup 3</source>
        <translation>Q_3 (Veränderlich) Lastgruppe 3</translation>
    </message>
    <message>
        <source>Q_4 (Variable) Loadgroup 4</source>
        <translation>Q_4 (Veränderlich) Lastgruppe 4</translation>
    </message>
    <message>
        <source>Q_5 (Variable) Loadgroup 5</source>
        <translation>Q_5 (Veränderlich) Lastgruppe 5</translation>
    </message>
    <message>
        <source>PERM permanent</source>
        <translation>PERM ständig</translation>
    </message>
    <message>
        <source>COND conditional</source>
        <translation>COND bedingt</translation>
    </message>
    <message>
        <source>EXCL exclusive within category</source>
        <translation>EXCL exklusiv in der Kategorie</translation>
    </message>
    <message>
        <source>UNSI conditional with unfavourable sign</source>
        <translation>UNSI bedingt mit ungünstigem Vorzeichen</translation>
    </message>
    <message>
        <source>USEX exclusive with unfavourable sign</source>
        <translation>USEX exklusiv mit ungünstigem Vorzeichen</translation>
    </message>
    <message>
        <source>ALEX permanent but exclusive</source>
        <translation>ALEX ständig, aber exklusiv</translation>
    </message>
    <message>
        <source>EXEX exclusive within action</source>
        <translation>EXEX exklusiv in der Einwirkung</translation>
    </message>
    <message>
        <source>PERC permanent with individual factors</source>
        <translation>PERC ständig mit eigenen Beiwerten</translation>
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
        <source>Partition</source>
        <translation>Einteilung</translation>
    </message>
    <message>
        <source>Superposition</source>
        <translation>Überlagerung</translation>
    </message>
    <message>
        <source>Handling of the loadcases</source>
        <translation>Behandlung der Lastfälle</translation>
    </message>
    <message>
        <source>Combination factor %1</source>
        <translation>Kombinationsbeiwert %1</translation>
    </message>
    <message>
        <source>Unfavourable safety factor</source>
        <translation>Teilsicherheitsbeiwert, ungünstig wirkend</translation>
    </message>
    <message>
        <source>Favourable safety factor</source>
        <translation>Teilsicherheitsbeiwert, günstig wirkend</translation>
    </message>
    <message>
        <source>Accidental safety factor</source>
        <translation>Teilsicherheitsbeiwert, außergewöhnliche Situation</translation>
    </message>
    <message>
        <source>Reinit all actions</source>
        <translation>Alle Einwirkungen zurücksetzen</translation>
    </message>
    <message>
        <source>Reinit selected actions</source>
        <translation>Ausgewählte Einwirkungen zurücksetzen</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>ADD ALL</source>
        <translation>ALLE HINZUFÜGEN</translation>
    </message>
    <message>
        <source>One or more actions are in use. Do you want to delete the selected actions and all assigned loadcases?

The actions are:
</source>
        <translation>Mindestens eine Einwirkung wird verwendet. Möchten Sie die ausgewählten Einwirkungen und alle zugehörigen Lastfälle löschen?

Die Einwirkungen sind:
</translation>
    </message>
    <message>
        <source>Action used!</source>
        <translation>Einwirkung wird verwendet!</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>LCM_DataClass</name>
    <message>
        <source>Database corrupt</source>
        <translation>Datenbank beschädigt</translation>
    </message>
    <message>
        <source>Can&apos;t read design code from database! Some text may be wrong or unreadable.</source>
        <translation>Die Norm kann nicht aus der Datenbank gelesen werden! Manche Texte sind möglicherweise falsch oder unlesbar.</translation>
    </message>
</context>
<context>
    <name>LCM_Extras</name>
    <message>
        <source>Actions</source>
        <translation>Einwirkungen</translation>
    </message>
    <message>
        <source>Load cases</source>
        <translation>Lastfälle</translation>
    </message>
    <message>
        <source>Nothing to undo</source>
        <translation>Nichts rückgängig zu machen</translation>
    </message>
    <message>
        <source>Undo: %1 (Ctrl+Z)</source>
        <translation>Rückgängig: %1 (Strg+Z)</translation>
    </message>
    <message>
        <source>Nothing to redo</source>
        <translation>Nichts wiederherzustellen</translation>
    </message>
    <message>
        <source>Redo: %1 (Ctrl+Y)</source>
        <translation>Wiederherstellen: %1 (Strg+Y)</translation>
    </message>
    <message>
        <source>The oldest steps were dropped: %1</source>
        <translation>Die ältesten Schritte wurden verworfen: %1</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
    <message>
        <source>Hidden rows: %1</source>
        <translation>Ausgeblendete Zeilen: %1</translation>
    </message>
    <message>
        <source>Findings (%1)</source>
        <translation>Befunde (%1)</translation>
    </message>
    <message>
        <source>No findings</source>
        <translation>Keine Befunde</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Find (Ctrl+F)</source>
        <translation>Suchen (Strg+F)</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Finds as you type, in all columns; F3 finds the next one</source>
        <translation>Sucht beim Tippen in allen Spalten; F3 sucht weiter</translation>
    </message>
    <message>
        <source>Find next</source>
        <translation>Weitersuchen</translation>
    </message>
    <message>
        <source>Find previous</source>
        <translation>Rückwärts suchen</translation>
    </message>
    <message>
        <source>Filter: text, &gt;1.0, =Q_B</source>
        <translation>Filter: Text, &gt;1.0, =Q_B</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Hides the rows without a match. Hidden rows are never selected, filled or deleted, but they are saved and checked.</source>
        <translation>Blendet die Zeilen ohne Treffer aus. Ausgeblendete Zeilen werden nie markiert, ausgefüllt oder gelöscht, aber gespeichert und geprüft.</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>All rows</source>
        <translation>Alle Zeilen</translation>
    </message>
    <message>
        <source>Findings only</source>
        <translation>Nur Befunde</translation>
    </message>
    <message>
        <source>Changed only</source>
        <translation>Nur Geänderte</translation>
    </message>
    <message>
        <source>Lists the findings; F8 goes to the next one, Shift+F8 back</source>
        <translation>Listet die Befunde; F8 geht zum nächsten, Umschalt+F8 zurück</translation>
    </message>
    <message>
        <source>Check again</source>
        <translation>Erneut prüfen</translation>
    </message>
    <message>
        <source>Judges all rows of both tabs anew (F5)</source>
        <translation>Beurteilt alle Zeilen beider Register neu (F5)</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>Befunde</translation>
    </message>
    <message>
        <source>Next finding</source>
        <translation>Nächster Befund</translation>
    </message>
    <message>
        <source>Previous finding</source>
        <translation>Voriger Befund</translation>
    </message>
    <message>
        <source>The reason is gone. &quot;Check again&quot; (F5) judges the row anew.</source>
        <translation>Der Grund besteht nicht mehr. „Erneut prüfen“ (F5) beurteilt die Zeile neu.</translation>
    </message>
    <message>
        <source>%1 (not shown)</source>
        <translation>%1 (nicht sichtbar)</translation>
    </message>
    <message>
        <source>%1, %2: %3</source>
        <translation>%1, %2: %3</translation>
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
        <source>One step has not been saved and would be lost.</source>
        <translation>Ein Schritt ist nicht gespeichert und ginge verloren.</translation>
    </message>
    <message>
        <source>%1 steps have not been saved and would be lost.</source>
        <translation>%1 Schritte sind nicht gespeichert und gingen verloren.</translation>
    </message>
    <message>
        <source>Leave without saving?</source>
        <translation>Ohne Speichern verlassen?</translation>
    </message>
    <message>
        <source>Keep editing</source>
        <translation>Weiter bearbeiten</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Cell</source>
        <translation>Zelle</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Grund</translation>
    </message>
    <message>
        <source>%1 of %2 values not taken</source>
        <translation>%1 von %2 Werten nicht übernommen</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Where the factor comes from</source>
        <translation>Woher der Beiwert kommt</translation>
    </message>
</context>
<context>
    <name>LCM_History</name>
    <message>
        <source>Input</source>
        <translation>Eingabe</translation>
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
        <source>New action</source>
        <translation>Neue Einwirkung</translation>
    </message>
    <message>
        <source>Add all actions</source>
        <translation>Alle Einwirkungen hinzufügen</translation>
    </message>
    <message>
        <source>Delete actions</source>
        <translation>Einwirkungen löschen</translation>
    </message>
    <message>
        <source>Reinitialise actions</source>
        <translation>Einwirkungen zurücksetzen</translation>
    </message>
    <message>
        <source>New load case</source>
        <translation>Neuer Lastfall</translation>
    </message>
    <message>
        <source>Copy load cases</source>
        <translation>Lastfälle kopieren</translation>
    </message>
    <message>
        <source>Delete load cases</source>
        <translation>Lastfälle löschen</translation>
    </message>
    <message>
        <source>Check again</source>
        <translation>Erneut prüfen</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Änderung</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1 (%2 rows)</source>
        <translation>%1 (%2 Zeilen)</translation>
    </message>
</context>
<context>
    <name>LCM_LoadcaseNumberDialog</name>
    <message>
        <source>Target loadcase number</source>
        <translation>Nummer des Ziel-Lastfalls</translation>
    </message>
    <message>
        <source>Copy from: %1</source>
        <translation>Kopie von: %1</translation>
    </message>
    <message>
        <source>Target loadcase:</source>
        <translation>Ziel-Lastfall:</translation>
    </message>
    <message>
        <source>Factor:</source>
        <translation>Faktor:</translation>
    </message>
    <message>
        <source>Already assigned</source>
        <translation>Bereits vergeben</translation>
    </message>
    <message>
        <source>This number is already assigned to a loadcase! Please choose another one.</source>
        <translation>Diese Nummer ist bereits an einen Lastfall vergeben! Bitte wählen Sie eine andere.</translation>
    </message>
    <message>
        <source>Number %1 is already in use. Next free number is %2. Should the next free number be used?</source>
        <translation>Die Nummer %1 ist bereits vergeben. Die nächste freie Nummer ist %2. Soll die nächste freie Nummer verwendet werden?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Factor</source>
        <translation>Faktor</translation>
    </message>
</context>
<context>
    <name>LCM_LoadcaseWidget</name>
    <message>
        <source>%1 has to be greater than 0.0!</source>
        <translation>%1 muss größer als 0.0 sein!</translation>
    </message>
    <message>
        <source>%1 has to be between %2 and %3!</source>
        <translation>%1 muss zwischen %2 und %3 liegen!</translation>
    </message>
    <message>
        <source>Component of automatic dead weight in X-direction</source>
        <translation>Anteil des automatischen Eigengewichts in X-Richtung</translation>
    </message>
    <message>
        <source>Component of automatic dead weight in Y-direction</source>
        <translation>Anteil des automatischen Eigengewichts in Y-Richtung</translation>
    </message>
    <message>
        <source>Component of automatic dead weight in Z-direction</source>
        <translation>Anteil des automatischen Eigengewichts in Z-Richtung</translation>
    </message>
    <message>
        <source>Number of loadcase</source>
        <translation>Nummer des Lastfalls</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Name of loadcase</source>
        <translation>Name des Lastfalls</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Einwirkung</translation>
    </message>
    <message>
        <source>Action of loadcase</source>
        <translation>Einwirkung des Lastfalls</translation>
    </message>
    <message>
        <source>Factor of dead weight</source>
        <translation>Eigengewichtsfaktor</translation>
    </message>
    <message>
        <source>DLX</source>
        <translation>DLX</translation>
    </message>
    <message>
        <source>DLY</source>
        <translation>DLY</translation>
    </message>
    <message>
        <source>DLZ</source>
        <translation>DLZ</translation>
    </message>
    <message>
        <source>Combination factor %1</source>
        <translation>Kombinationsbeiwert %1</translation>
    </message>
    <message>
        <source>Unfavourable safety factor</source>
        <translation>Teilsicherheitsbeiwert, ungünstig wirkend</translation>
    </message>
    <message>
        <source>Favourable safety factor</source>
        <translation>Teilsicherheitsbeiwert, günstig wirkend</translation>
    </message>
    <message>
        <source>Accidental safety factor</source>
        <translation>Teilsicherheitsbeiwert, außergewöhnliche Situation</translation>
    </message>
    <message>
        <source>Loadcase selection</source>
        <translation>Auswahl der Lastfälle</translation>
    </message>
    <message>
        <source>Please select a loadcase to copy!</source>
        <translation>Bitte wählen Sie einen Lastfall zum Kopieren aus!</translation>
    </message>
    <message>
        <source>Loadcase number</source>
        <translation>Lastfallnummer</translation>
    </message>
    <message>
        <source>The maximum loadcase number is %1, selected loadcase number is to high!</source>
        <translation>Die höchste Lastfallnummer ist %1, die gewählte Lastfallnummer ist zu hoch!</translation>
    </message>
    <message>
        <source>The maximum loadcase number is %1</source>
        <translation>Die höchste Lastfallnummer ist %1</translation>
    </message>
    <message>
        <source>Loadcase %1</source>
        <translation>Lastfall %1</translation>
    </message>
    <message>
        <source>Should the selected loadcase (including all loads) really be deleted?</source>
        <translation>Soll der ausgewählte Lastfall (mit allen Lasten) wirklich gelöscht werden?</translation>
    </message>
    <message>
        <source>Should %1 selected loadcases (including all loads) really be deleted?</source>
        <translation>Sollen %1 ausgewählte Lastfälle (mit allen Lasten) wirklich gelöscht werden?</translation>
    </message>
    <message>
        <source>Delete loadcase(s)</source>
        <translation>Lastfälle löschen</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Imperfection</source>
        <translation>Imperfektion</translation>
    </message>
    <message>
        <source>Checking loadcases</source>
        <translation>Lastfälle werden geprüft</translation>
    </message>
    <message>
        <source>The loadcases will be checked because of changed action values.</source>
        <translation>Die Lastfälle werden wegen geänderter Werte der Einwirkungen geprüft.</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Use global deadload directions</source>
        <translation>Globale Eigengewichtsrichtungen verwenden</translation>
    </message>
    <message>
        <source>Increment loadcases automatically from selected on</source>
        <translation>Nummern ab Auswahl weiterzählen</translation>
    </message>
    <message>
        <source>Delete unused loadcases</source>
        <translation>Unbenutzte Lastfälle löschen</translation>
    </message>
    <message>
        <source>Use from Action</source>
        <translation>Von der Einwirkung übernehmen</translation>
    </message>
    <message>
        <source>The action of this load case is missing.</source>
        <translation>Die Einwirkung dieses Lastfalls fehlt.</translation>
    </message>
    <message>
        <source>Load case %1</source>
        <translation>Lastfall %1</translation>
    </message>
    <message>
        <source>%1 load cases: %2</source>
        <translation>%1 Lastfälle: %2</translation>
    </message>
    <message>
        <source>No number is free.</source>
        <translation>Keine Nummer ist frei.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number from 1 to %2.</source>
        <translation>„%1“ ist keine Nummer von 1 bis %2.</translation>
    </message>
    <message>
        <source>Load case %1 exists already.</source>
        <translation>Den Lastfall %1 gibt es schon.</translation>
    </message>
    <message>
        <source>No action is called &quot;%1&quot;.</source>
        <translation>Keine Einwirkung heißt „%1“.</translation>
    </message>
    <message>
        <source>Several actions have the title &quot;%1&quot;.</source>
        <translation>Mehrere Einwirkungen haben den Titel „%1“.</translation>
    </message>
</context>
<context>
    <name>LCM_OriginNotes</name>
    <message>
        <source>Reinit would change nothing</source>
        <translation>Zurücksetzen würde nichts ändern</translation>
    </message>
    <message>
        <source>Reinit would change (%1)</source>
        <translation>Zurücksetzen würde ändern (%1)</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
</context>
<context>
    <name>LCM_OriginText</name>
    <message>
        <source>verified</source>
        <translation>geprüft</translation>
    </message>
    <message>
        <source>one source</source>
        <translation>eine Quelle</translation>
    </message>
    <message>
        <source>own choice</source>
        <translation>eigene Wahl</translation>
    </message>
    <message>
        <source>unverified</source>
        <translation>ungeprüft</translation>
    </message>
    <message>
        <source>yours; the code states none</source>
        <translation>eigener Wert; die Norm nennt keinen</translation>
    </message>
    <message>
        <source>yours; the code says %1 (%2)</source>
        <translation>eigener Wert; die Norm sagt %1 (%2)</translation>
    </message>
</context>
<context>
    <name>LCM_ProjectCheck</name>
    <message>
        <source>names that begin with Y are reserved; the dialog never loads it</source>
        <translation>Namen, die mit Y beginnen, sind reserviert; der Dialog lädt sie nie</translation>
    </message>
    <message>
        <source>an action without a name; the dialog never loads it</source>
        <translation>eine Einwirkung ohne Namen; der Dialog lädt sie nie</translation>
    </message>
    <message>
        <source>the record names the action %1 and will move there when the dialog is accepted</source>
        <translation>der Datensatz nennt die Einwirkung %1 und zieht dorthin um, wenn der Dialog mit OK verlassen wird</translation>
    </message>
    <message>
        <source>the number is above 999999</source>
        <translation>die Nummer liegt über 999999</translation>
    </message>
    <message>
        <source>it keeps factors that differ from those of its action %1, which count; choose the action again to let it follow</source>
        <translation>behält Beiwerte, die von denen seiner Einwirkung %1 abweichen; diese zählen; wird die Einwirkung neu gewählt, folgt er ihr</translation>
    </message>
    <message>
        <source>the project has no action %1</source>
        <translation>das Projekt hat keine Einwirkung %1</translation>
    </message>
    <message>
        <source>another module keeps a record of kind %1 under this number; accepting the dialog drops it</source>
        <translation>ein anderes Modul führt unter dieser Nummer einen Datensatz der Art %1; mit OK im Dialog geht er verloren</translation>
    </message>
    <message>
        <source>Psi1 is marked without Psi2, so that every Psi1 below 1.0 is refused</source>
        <translation>Psi1 ist ohne Psi2 vermerkt, sodass jedes Psi1 unter 1,0 abgewiesen wird</translation>
    </message>
    <message>
        <source>the name holds lower-case letters and can&apos;t be typed</source>
        <translation>der Name enthält Kleinbuchstaben und lässt sich nicht eintippen</translation>
    </message>
    <message>
        <source>a suffix of more than one character doesn&apos;t survive editing</source>
        <translation>ein Zusatz von mehr als einem Zeichen übersteht keine Bearbeitung</translation>
    </message>
    <message>
        <source>the action has %1 bytes instead of %2</source>
        <translation>die Einwirkung hat %1 Bytes statt %2</translation>
    </message>
    <message>
        <source>the load case has %1 bytes instead of %2</source>
        <translation>der Lastfall hat %1 Bytes statt %2</translation>
    </message>
    <message>
        <source>a load-case number is above 0; no walk meets this key</source>
        <translation>eine Lastfallnummer liegt über 0; dieser Schlüssel wird nie gelesen</translation>
    </message>
    <message>
        <source>the current-load-case record has %1 bytes instead of %2</source>
        <translation>der Datensatz des aktuellen Lastfalls hat %1 Bytes statt %2</translation>
    </message>
    <message>
        <source>the current-load-case record has the kind %1 and counts as absent</source>
        <translation>der Datensatz des aktuellen Lastfalls hat die Art %1 und gilt als nicht vorhanden</translation>
    </message>
    <message>
        <source>the system record has %1 bytes instead of %2</source>
        <translation>der Systemdatensatz hat %1 Bytes statt %2</translation>
    </message>
    <message>
        <source>its row keeps only %1 of the name, so that its load cases lose the action when the dialog opens</source>
        <translation>ihre Zeile behält vom Namen nur %1, sodass ihre Lastfälle die Einwirkung verlieren, wenn der Dialog aufgeht</translation>
    </message>
</context>
<context>
    <name>LCM_TabInterface</name>
    <message>
        <source>Action modified</source>
        <translation>Einwirkung geändert</translation>
    </message>
    <message>
        <source>You have made modifications to the actions.
Please check your inputs in the Superposition Manager and adapt them if necessary manually or by reinitializing.</source>
        <translation>Sie haben die Einwirkungen geändert.
Bitte prüfen Sie Ihre Eingaben im Überlagerungs-Manager und passen Sie sie nötigenfalls von Hand oder durch Zurücksetzen an.</translation>
    </message>
    <message>
        <source>The line names no action.</source>
        <translation>Die Zeile nennt keine Einwirkung.</translation>
    </message>
    <message>
        <source>The design code has no action %1.</source>
        <translation>Die Norm hat keine Einwirkung %1.</translation>
    </message>
    <message>
        <source>A new action needs a name: paste from the first column on.</source>
        <translation>Eine neue Einwirkung braucht einen Namen: ab der ersten Spalte einfügen.</translation>
    </message>
</context>
<context>
    <name>LCM_TitleExcess</name>
    <message>
        <source>Too long by %1 characters, which are not kept: %2</source>
        <translation>Um %1 Zeichen zu lang; nicht behalten wird: %2</translation>
    </message>
</context>
<context>
    <name>LoadcaseManager</name>
    <message>
        <source>Marlavon: Loadcase Manager</source>
        <translation>Marlavon: Lastfall-Manager</translation>
    </message>
    <message>
        <source>Loadcases</source>
        <translation>Lastfälle</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Einwirkungen</translation>
    </message>
    <message>
        <source>Marlavon: Action Manager</source>
        <translation>Marlavon: Einwirkungs-Manager</translation>
    </message>
    <message>
        <source>Marlavon: Action and Loadcase Manager</source>
        <translation>Marlavon: Einwirkungs- und Lastfall-Manager</translation>
    </message>
    <message>
        <source>Invalid input</source>
        <translation>Ungültige Eingabe</translation>
    </message>
    <message>
        <source>The input is invalid, please check your input!</source>
        <translation>Die Eingabe ist ungültig, bitte prüfen Sie Ihre Eingabe!</translation>
    </message>
    <message>
        <source>Error!</source>
        <translation>Fehler!</translation>
    </message>
    <message>
        <source>Please select exactly one loadcase!</source>
        <translation>Bitte wählen Sie genau einen Lastfall aus!</translation>
    </message>
</context>
<context>
    <name>MRL_LC_AddNewActionDialog</name>
    <message>
        <source>Max. 1 character for category!</source>
        <translation>Höchstens 1 Zeichen für die Kategorie!</translation>
    </message>
    <message>
        <source>Max. 4 characters!</source>
        <translation>Höchstens 4 Zeichen!</translation>
    </message>
    <message>
        <source>Spaces are not allowed!</source>
        <translation>Leerzeichen sind nicht erlaubt!</translation>
    </message>
    <message>
        <source>Special characters are not allowed!</source>
        <translation>Sonderzeichen sind nicht erlaubt!</translation>
    </message>
    <message>
        <source>No digit at beginning!</source>
        <translation>Keine Ziffer am Anfang!</translation>
    </message>
    <message>
        <source>Action &apos;IMP&apos; is not allowed!</source>
        <translation>Die Einwirkung „IMP“ ist nicht erlaubt!</translation>
    </message>
    <message>
        <source>Action beginning with &apos;Y&apos; is not allowed!</source>
        <translation>Einwirkungen, die mit „Y“ beginnen, sind nicht erlaubt!</translation>
    </message>
    <message>
        <source>Name already used!</source>
        <translation>Der Name wird bereits verwendet!</translation>
    </message>
    <message>
        <source>New action</source>
        <translation>Neue Einwirkung</translation>
    </message>
    <message>
        <source>Pre defined actions</source>
        <translation>Vordefinierte Einwirkungen</translation>
    </message>
    <message>
        <source>Action:</source>
        <translation>Einwirkung:</translation>
    </message>
    <message>
        <source>Category:</source>
        <translation>Kategorie:</translation>
    </message>
    <message>
        <source>Description:</source>
        <translation>Bezeichnung:</translation>
    </message>
    <message>
        <source>User defined action</source>
        <translation>Benutzerdefinierte Einwirkung</translation>
    </message>
    <message>
        <source>The action has no category that could be added.</source>
        <translation>Die Einwirkung hat keine Kategorie, die hinzugefügt werden könnte.</translation>
    </message>
    <message>
        <source>Only an action of at most 2 characters can have a category.</source>
        <translation>Nur eine Einwirkung mit höchstens 2 Zeichen kann eine Kategorie haben.</translation>
    </message>
</context>
</TS>
