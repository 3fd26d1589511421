<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Workbench</name>
    <message>
        <source>%1 holds no managers.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The default actions could not be stored.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mrl::workbench</name>
    <message>
        <source>Action %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Load case %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The project has no action %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mrl::workbench::ActionsModel</name>
    <message>
        <source>permanent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>prestress</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>variable, group %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>variable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>accidental</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>earthquake</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Action</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Description</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Category</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Superposition</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mrl::workbench::FindingsModel</name>
    <message>
        <source>Where</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Finding</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mrl::workbench::InputPage</name>
    <message>
        <source>&amp;Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sa&amp;ve text as...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save the generated input</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Input text (*.dat);;All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mrl::workbench::LoadCasesModel</name>
    <message>
        <source>none</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The current load case</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Title</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Action</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mrl::workbench::MainWindow</name>
    <message>
        <source>Projects (*.cdb);;All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another program has changed this project since it was opened.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Overwriting replaces its actions and load cases by those shown here. &quot;Save as&quot; keeps both.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Overwrite</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save project as</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unsaved changes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 has unsaved changes. Should they be saved?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The managers can&apos;t be loaded: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The managers need the design code of the project, which can&apos;t be loaded: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Managers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Marlavon Workbench</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1[*] (read-only) - Marlavon Workbench</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1[*] - Marlavon Workbench</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About the Marlavon Workbench</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;h3&gt;Marlavon Workbench %1&lt;/h3&gt;&lt;p&gt;Edits the actions and load cases of structural models.&lt;/p&gt;&lt;p&gt;Check every design code against the printed standard before you rely on it.&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;New...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Action Manager...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Load-case Manager...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Tasks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Extras</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Settings...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Actions and load cases</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A&amp;bout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About &amp;Qt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Commands</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Summary</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Generated input</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mrl::workbench::NewProjectDialog</name>
    <message>
        <source>Store the &amp;default actions of the design code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Design &amp;code:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;System:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Gravity:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>C&amp;reate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Spatial structure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plane structure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File of the new project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Projects (*.cdb)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 exists. Should it be replaced?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mrl::workbench::SettingsDialog</name>
    <message>
        <source>&amp;Experimental functions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Restricted run mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A change of the language holds from the next start.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Functions:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows commands that are still on trial, such as &quot;ADD ALL&quot; in the Action Manager.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The Action Manager then offers the actions of the design code only.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mrl::workbench::StartPage</name>
    <message>
        <source>Marlavon Workbench</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Actions and load cases of structural models</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose design code, system and gravity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open a project file (*.cdb)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recent projects</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mrl::workbench::SummaryPage</name>
    <message>
        <source>plane structure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>plate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>spatial structure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No actions are stored yet. The managers start with the default actions of the design code; OK stores them.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Design code:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>System:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gravity:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current load case:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>can&apos;t be loaded: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>none</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Actions (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Load cases (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Numbers that belong to other modules: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Findings (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Findings (not checked)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mrl::workbench::TaskPanel</name>
    <message>
        <source>Action Manager</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Load-case Manager</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tasks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no actions yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 action</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 actions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no load cases yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 load case</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 load cases</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
