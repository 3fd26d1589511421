<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Readable</name>
    <message>
        <source>or</source>
        <translation>oder</translation>
    </message>
    <message>
        <source>when %1 acts</source>
        <translation>wenn %1 wirkt</translation>
    </message>
    <message>
        <source>when %1 leads</source>
        <translation>wenn %1 führt</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>load groups exclude each other</source>
        <translation>Lastgruppen schließen einander aus</translation>
    </message>
    <message>
        <source>at most %1 variable actions</source>
        <translation>höchstens %1 veränderliche Einwirkungen</translation>
    </message>
    <message>
        <source>variable actions always act</source>
        <translation>veränderliche Einwirkungen wirken immer</translation>
    </message>
    <message>
        <source>components of the earthquake: %1, %2</source>
        <translation>Komponenten des Erdbebens: %1, %2</translation>
    </message>
    <message>
        <source>also without an accidental or seismic action</source>
        <translation>auch ohne außergewöhnliche oder Erdbebeneinwirkung</translation>
    </message>
    <message>
        <source>%1 million</source>
        <translation>%1 Millionen</translation>
    </message>
    <message>
        <source>%1 billion</source>
        <translation>%1 Milliarden</translation>
    </message>
    <message>
        <source>of %1 the first beside the leading one accompanies in full</source>
        <translation>von %1 begleitet die erste neben der führenden voll</translation>
    </message>
    <message>
        <source>permanent</source>
        <translation>ständig</translation>
    </message>
    <message>
        <source>prestress</source>
        <translation>Vorspannung</translation>
    </message>
    <message>
        <source>leading</source>
        <translation>führend</translation>
    </message>
    <message>
        <source>accompanying</source>
        <translation>begleitend</translation>
    </message>
    <message>
        <source>accompanying, further</source>
        <translation>begleitend, weitere</translation>
    </message>
    <message>
        <source>accidental</source>
        <translation>außergewöhnlich</translation>
    </message>
    <message>
        <source>seismic</source>
        <translation>Erdbeben</translation>
    </message>
    <message>
        <source>imperfection</source>
        <translation>Imperfektion</translation>
    </message>
</context>
<context>
    <name>Report</name>
    <message>
        <source>Actions</source>
        <translation>Einwirkungen</translation>
    </message>
    <message>
        <source>The project has no actions.</source>
        <translation>Das Projekt hat keine Einwirkungen.</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Einwirkung</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Superp.</source>
        <translation>Überl.</translation>
    </message>
    <message>
        <source>Load cases</source>
        <translation>Lastfälle</translation>
    </message>
    <message>
        <source>How the load cases of an action act together: %1.</source>
        <translation>Wie die Lastfälle einer Einwirkung zusammenwirken: %1.</translation>
    </message>
    <message>
        <source>... and %1 more up to %2</source>
        <translation>... und %1 weitere bis %2</translation>
    </message>
    <message>
        <source>no action</source>
        <translation>ohne Einwirkung</translation>
    </message>
    <message>
        <source>Load cases of each action</source>
        <translation>Lastfälle der Einwirkungen</translation>
    </message>
    <message>
        <source>The project has no load cases.</source>
        <translation>Das Projekt hat keine Lastfälle.</translation>
    </message>
    <message>
        <source>Load cases in the order of their numbers</source>
        <translation>Lastfälle in der Reihenfolge ihrer Nummern</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>Each load case has its place on the bars, beside that with the next number. A range such as %1 stands for all load cases of the project between its ends.</source>
        <translation>Jeder Lastfall hat seinen Platz auf den Balken, neben dem mit der nächsten Nummer. Ein Bereich wie %1 steht für alle Lastfälle des Projekts zwischen seinen Enden.</translation>
    </message>
    <message>
        <source>action that the project lacks</source>
        <translation>Einwirkung, die dem Projekt fehlt</translation>
    </message>
    <message>
        <source>Imperfections</source>
        <translation>Imperfektionen</translation>
    </message>
    <message>
        <source>Without an action</source>
        <translation>Ohne Einwirkung</translation>
    </message>
    <message>
        <source>Of other modules</source>
        <translation>Von anderen Modulen</translation>
    </message>
    <message>
        <source>Actions and load cases</source>
        <translation>Einwirkungen und Lastfälle</translation>
    </message>
    <message>
        <source>set by hand</source>
        <translation>von Hand gesetzt</translation>
    </message>
    <message>
        <source>the code doesn&apos;t have the action</source>
        <translation>die Norm hat die Einwirkung nicht</translation>
    </message>
    <message>
        <source>the code states no value</source>
        <translation>die Norm nennt keinen Wert</translation>
    </message>
    <message>
        <source>see the deviations</source>
        <translation>siehe Abweichungen</translation>
    </message>
    <message>
        <source>%1, on %2</source>
        <translation>%1, aufbauend auf %2</translation>
    </message>
    <message>
        <source>Design code and its values</source>
        <translation>Norm und ihre Werte</translation>
    </message>
    <message>
        <source>No design code is active: %1. No value has a source, and nothing can be combined.</source>
        <translation>Keine Norm ist aktiv: %1. Kein Wert hat eine Quelle, und nichts kann kombiniert werden.</translation>
    </message>
    <message>
        <source>States: &quot;verified&quot;: two independent public transcriptions of the standard or more agree; &quot;one source&quot;: there is one; &quot;own choice&quot;: the standard leaves it open, and the author of the design-code file chose; &quot;unverified&quot;: nobody vouches for it. None of these was read in the printed standard, against which each value is to be checked.</source>
        <translation>Stand der Werte: „geprüft“: mindestens zwei unabhängige öffentliche Abschriften der Norm stimmen überein; „eine Quelle“: es gibt eine; „eigene Wahl“: die Norm lässt es offen, und der Verfasser der Normdatei hat gewählt; „ungeprüft“: niemand steht dafür ein. Keiner dieser Werte wurde in der gedruckten Norm gelesen; jeder ist an ihr zu prüfen.</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>Werte</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Stand</translation>
    </message>
    <message>
        <source>Remark</source>
        <translation>Bemerkung</translation>
    </message>
    <message>
        <source>Superposition</source>
        <translation>Überlagerung</translation>
    </message>
    <message>
        <source>Deviations from the design code</source>
        <translation>Abweichungen von der Norm</translation>
    </message>
    <message>
        <source>There is no design code to deviate from.</source>
        <translation>Es gibt keine Norm, von der etwas abweichen könnte.</translation>
    </message>
    <message>
        <source>No action deviates from what the design code says of it.</source>
        <translation>Keine Einwirkung weicht von dem ab, was die Norm von ihr sagt.</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>In the project</source>
        <translation>Im Projekt</translation>
    </message>
    <message>
        <source>In the code</source>
        <translation>In der Norm</translation>
    </message>
    <message>
        <source>Actions that the design code doesn&apos;t have: %1</source>
        <translation>Einwirkungen, die die Norm nicht hat: %1</translation>
    </message>
    <message>
        <source>Design code</source>
        <translation>Norm</translation>
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
        <source>Key %1/%2</source>
        <translation>Schlüssel %1/%2</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>Befunde</translation>
    </message>
    <message>
        <source>No rule finds fault with an action or a load case.</source>
        <translation>Keine Regel beanstandet eine Einwirkung oder einen Lastfall.</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Wo</translation>
    </message>
    <message>
        <source>Finding</source>
        <translation>Befund</translation>
    </message>
    <message>
        <source>Rule</source>
        <translation>Regel</translation>
    </message>
    <message>
        <source>Found as mrl-lc check does. docs/findings.md tells condition and cure of each rule.</source>
        <translation>Gefunden wie von mrl-lc check. docs/findings.md nennt Bedingung und Abhilfe jeder Regel.</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Seite %1 von %2</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Kind of the record</source>
        <translation>Art des Satzes</translation>
    </message>
    <message>
        <source>Factor</source>
        <translation>Faktor</translation>
    </message>
    <message>
        <source>Load cases by action</source>
        <translation>Lastfälle nach Einwirkungen</translation>
    </message>
    <message>
        <source>DLX, DLY and DLZ are the components of automatic dead weight, a dash stands for 0. The safety and combination factors of a load case are those of its action; one without an action has its own.</source>
        <translation>DLX, DLY und DLZ sind die Komponenten des automatischen Eigengewichts, ein Strich steht für 0. Die Sicherheits- und Kombinationsbeiwerte eines Lastfalls sind die seiner Einwirkung; einer ohne Einwirkung hat eigene.</translation>
    </message>
    <message>
        <source>spatial</source>
        <translation>räumlich</translation>
    </message>
    <message>
        <source>plane</source>
        <translation>eben</translation>
    </message>
    <message>
        <source>plate</source>
        <translation>Platte</translation>
    </message>
    <message>
        <source>none: %1</source>
        <translation>keine: %1</translation>
    </message>
    <message>
        <source>%1, and %2 of other modules</source>
        <translation>%1, und %2 von anderen Modulen</translation>
    </message>
    <message>
        <source>%1 set by hand</source>
        <translation>%1 von Hand gesetzt</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Projekt</translation>
    </message>
    <message>
        <source>Copy in the project</source>
        <translation>Kopie im Projekt</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>%1, gravity along %2</source>
        <translation>%1, Schwerkraft in %2</translation>
    </message>
    <message>
        <source>Current load case</source>
        <translation>Aktueller Lastfall</translation>
    </message>
    <message>
        <source>Values of the actions</source>
        <translation>Werte der Einwirkungen</translation>
    </message>
    <message>
        <source>Deviations from the code</source>
        <translation>Abweichungen von der Norm</translation>
    </message>
    <message>
        <source>Content (SHA-256)</source>
        <translation>Inhalt (SHA-256)</translation>
    </message>
    <message>
        <source>The project has changes that aren&apos;t saved. The report and its hash are of what stood in the program, not in the file.</source>
        <translation>Das Projekt hat nicht gespeicherte Änderungen. Der Bericht und seine Prüfsumme gelten für das, was im Programm stand, nicht in der Datei.</translation>
    </message>
    <message>
        <source>The hash at the foot of each page is that of the project&apos;s whole content, and tells whether the project still is what this report tells of. It is printed by</source>
        <translation>Die Prüfsumme am Fuß jeder Seite ist die des ganzen Inhalts des Projekts. An ihr erkennt man, ob das Projekt noch das ist, von dem dieser Bericht handelt. Sie wird ausgegeben von</translation>
    </message>
    <message>
        <source>doesn&apos;t act: %1</source>
        <translation>wirkt nicht: %1</translation>
    </message>
    <message>
        <source>Left out: %1</source>
        <translation>Ausgelassen: %1</translation>
    </message>
    <message>
        <source>Design situations and combinations</source>
        <translation>Bemessungssituationen und Kombinationen</translation>
    </message>
    <message>
        <source>The design code doesn&apos;t tell how actions are combined.</source>
        <translation>Die Norm sagt nicht, wie Einwirkungen kombiniert werden.</translation>
    </message>
    <message>
        <source>Nothing is combined before this is mended:</source>
        <translation>Nichts wird kombiniert, bevor dies behoben ist:</translation>
    </message>
    <message>
        <source>Situation</source>
        <translation>Situation</translation>
    </message>
    <message>
        <source>Combinations</source>
        <translation>Kombinationen</translation>
    </message>
    <message>
        <source>Different</source>
        <translation>Verschiedene</translation>
    </message>
    <message>
        <source>All combinations that may govern are counted, as mrl-lc combine --count does: each choice of factors for the permanent actions, of load cases that act together and of the leading action. Different ones have different factors.</source>
        <translation>Gezählt sind alle Kombinationen, die maßgebend werden können, wie von mrl-lc combine --count: jede Wahl der Beiwerte der ständigen Einwirkungen, der zusammen wirkenden Lastfälle und der führenden Einwirkung. Verschiedene haben verschiedene Beiwerte.</translation>
    </message>
    <message>
        <source>%1, continued</source>
        <translation>%1, Fortsetzung</translation>
    </message>
    <message>
        <source>Action</source>
        <comment>narrow column</comment>
        <translation>Einw.</translation>
    </message>
    <message>
        <source>Load cases</source>
        <comment>narrow column</comment>
        <translation>LF</translation>
    </message>
    <message>
        <source>an imperfection, which the situation doesn&apos;t bring in</source>
        <translation>eine Imperfektion, die die Situation nicht einbezieht</translation>
    </message>
    <message>
        <source>it has neither an action nor factors</source>
        <translation>er hat weder Einwirkung noch Beiwerte</translation>
    </message>
    <message>
        <source>it belongs to another module</source>
        <translation>er gehört einem anderen Modul</translation>
    </message>
    <message>
        <source>Left out, load cases %1: %2</source>
        <translation>Ausgelassen, Lastfälle %1: %2</translation>
    </message>
</context>
</TS>
