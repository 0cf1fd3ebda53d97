<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>BasePanelMaintenance</name>
    <message>
        <source>line open</source>
        <translation>Leitung offen</translation>
    </message>
    <message>
        <source>line not open</source>
        <translation>Leitung nicht offen</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Usage: %1 [options] COMMAND …

Runs a tightening workplace with one wireless torque wrench.

Commands (each has --help):
</source>
        <translation>Aufruf: %1 [Optionen] BEFEHL …

Betreibt einen Schraubplatz mit einem Funk-Drehmomentschlüssel.

Befehle (jeder kennt --help):
</translation>
    </message>
    <message>
        <source>
Options, before or behind the command:
</source>
        <translation>
Optionen, vor oder hinter dem Befehl:
</translation>
    </message>
    <message>
        <source>
Exit status: 0 done, 1 the device said no or did not answer, 2 wrong usage, 3 set-up problem.</source>
        <translation>
Endestatus: 0 erledigt, 1 das Gerät hat abgelehnt oder nicht geantwortet, 2 falscher Aufruf, 3 Problem der Einrichtung.</translation>
    </message>
    <message>
        <source>Usage: %1 [options] %2

%3
</source>
        <translation>Aufruf: %1 [Optionen] %2

%3
</translation>
    </message>
    <message>
        <source>
Options of this command:
</source>
        <translation>
Optionen dieses Befehls:
</translation>
    </message>
    <message>
        <source>
Options of every command:
</source>
        <translation>
Optionen aller Befehle:
</translation>
    </message>
    <message>
        <source>see %1 --help</source>
        <translation>siehe %1 --help</translation>
    </message>
    <message>
        <source>there is no option &quot;--%1&quot;</source>
        <translation>die Option „--%1“ gibt es nicht</translation>
    </message>
    <message>
        <source>unexpected value after &apos;%1&apos;</source>
        <translation>unerwarteter Wert hinter „%1“</translation>
    </message>
    <message>
        <source>missing value after &apos;%1&apos;</source>
        <translation>hinter „%1“ fehlt der Wert</translation>
    </message>
    <message>
        <source>A configuration file; the command line goes before it. Empty: none.</source>
        <translation>Eine Konfigurationsdatei; die Befehlszeile geht vor. Leer: keine.</translation>
    </message>
    <message>
        <source>Shows this help.</source>
        <translation>Zeigt diese Hilfe.</translation>
    </message>
    <message>
        <source>Shows the version.</source>
        <translation>Zeigt die Version an.</translation>
    </message>
    <message>
        <source>no command is given</source>
        <translation>es ist kein Befehl angegeben</translation>
    </message>
    <message>
        <source>there is no command &quot;%1&quot;</source>
        <translation>den Befehl „%1“ gibt es nicht</translation>
    </message>
    <message>
        <source>the port &quot;%1&quot; names no file</source>
        <translation>der Anschluss „%1“ nennt keine Datei</translation>
    </message>
    <message>
        <source>name a scenario as simulated:FILE, or write only &quot;simulated&quot;</source>
        <translation>nennen Sie ein Szenario als simulated:DATEI, oder schreiben Sie nur „simulated“</translation>
    </message>
</context>
<context>
    <name>CommandsCommand</name>
    <message>
        <source>one command can be told about, not %1</source>
        <translation>es lässt sich ein Befehl erklären, nicht %1</translation>
    </message>
    <message>
        <source>see app_workplace commands --help</source>
        <translation>siehe app_workplace commands --help</translation>
    </message>
    <message>
        <source>%1: none declared</source>
        <translation>%1: keine angegeben</translation>
    </message>
    <message>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>default</source>
        <translation>Vorgabe</translation>
    </message>
    <message>
        <source>description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Lists what the loaded plugins offer, or tells about one command.</source>
        <translation>Listet auf, was die geladenen Plugins bieten, oder erklärt einen Befehl.</translation>
    </message>
    <message>
        <source>there is no plugin</source>
        <translation>es ist kein Plugin da</translation>
    </message>
    <message>
        <source>none was loaded</source>
        <translation>keines wurde geladen</translation>
    </message>
    <message>
        <source>check the folder of the plugins with --plugins</source>
        <translation>prüfen Sie mit --plugins den Ordner der Plugins</translation>
    </message>
    <message>
        <source>no loaded plugin has the command &quot;%1&quot;</source>
        <translation>kein geladenes Plugin hat den Befehl „%1“</translation>
    </message>
    <message>
        <source>&quot;app_workplace commands&quot; lists what there is</source>
        <translation>„app_workplace commands“ zeigt, was es gibt</translation>
    </message>
    <message>
        <source>command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>stopped by</source>
        <translation>beendet durch</translation>
    </message>
    <message>
        <source>Runs until it is stopped by &quot;%1&quot; (Ctrl-C).</source>
        <translation>Läuft, bis „%1“ ihn beendet (Strg-C).</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Results</source>
        <translation>Ergebnisse</translation>
    </message>
</context>
<context>
    <name>CompletionCommand</name>
    <message>
        <source>for which shell is not said, or for one that is not known</source>
        <translation>für welche Shell, ist nicht gesagt, oder sie ist nicht bekannt</translation>
    </message>
    <message>
        <source>write &quot;app_workplace completion bash&quot; or &quot;app_workplace completion zsh&quot;</source>
        <translation>schreiben Sie „app_workplace completion bash“ oder „app_workplace completion zsh“</translation>
    </message>
    <message>
        <source>Prints the script that completes command lines in a shell.</source>
        <translation>Gibt das Skript aus, mit dem eine Shell Befehlszeilen ergänzt.</translation>
    </message>
</context>
<context>
    <name>ConfigCommand</name>
    <message>
        <source>the configuration takes no argument &quot;%1&quot;</source>
        <translation>die Konfiguration kennt kein Argument „%1“</translation>
    </message>
    <message>
        <source>see %1 --help</source>
        <translation>siehe %1 --help</translation>
    </message>
    <message>
        <source>default</source>
        <translation>Vorgabe</translation>
    </message>
    <message>
        <source>%1, line %2</source>
        <translation>%1, Zeile %2</translation>
    </message>
    <message>
        <source>environment, %1</source>
        <translation>Umgebung, %1</translation>
    </message>
    <message>
        <source>command line, %1</source>
        <translation>Befehlszeile, %1</translation>
    </message>
    <message>
        <source>Shows the settings in effect and where each comes from.</source>
        <translation>Zeigt die geltenden Einstellungen und woher jede kommt.</translation>
    </message>
    <message>
        <source>Writes a commented file of the defaults, to this user&apos;s own place when no other is named; - for standard output.</source>
        <translation>Schreibt eine kommentierte Datei mit den Vorgaben, ohne anderen Namen an den Platz dieses Benutzers; - für die Standardausgabe.</translation>
    </message>
    <message>
        <source>the file %1 is not written</source>
        <translation>die Datei %1 wird nicht geschrieben</translation>
    </message>
    <message>
        <source>it is there already</source>
        <translation>es gibt sie schon</translation>
    </message>
    <message>
        <source>name another file, or move that one away</source>
        <translation>nennen Sie eine andere Datei, oder verschieben Sie diese</translation>
    </message>
    <message>
        <source>%1 is written; it holds the defaults.</source>
        <translation>%1 ist geschrieben und enthält die Vorgaben.</translation>
    </message>
    <message>
        <source>setting</source>
        <translation>Einstellung</translation>
    </message>
    <message>
        <source>value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>from</source>
        <translation>Herkunft</translation>
    </message>
    <message>
        <source>Configuration: %1</source>
        <translation>Konfiguration: %1</translation>
    </message>
    <message>
        <source>Configuration: none was read; this user&apos;s own would be %1</source>
        <translation>Konfiguration: keine gelesen; die dieses Benutzers wäre %1</translation>
    </message>
</context>
<context>
    <name>ConfigurationFile</name>
    <message>
        <source>put its value between quotes</source>
        <translation>setzen Sie den Wert in Anführungszeichen</translation>
    </message>
    <message>
        <source>write true or false</source>
        <translation>schreiben Sie true oder false</translation>
    </message>
    <message>
        <source>write a whole number, without quotes</source>
        <translation>schreiben Sie eine ganze Zahl ohne Anführungszeichen</translation>
    </message>
    <message>
        <source>write a number, without quotes</source>
        <translation>schreiben Sie eine Zahl ohne Anführungszeichen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a text</source>
        <translation>„%1“ ist kein Text</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither true nor false</source>
        <translation>„%1“ ist weder true noch false</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a whole number</source>
        <translation>„%1“ ist keine ganze Zahl</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number</source>
        <translation>„%1“ ist keine Zahl</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an object</source>
        <translation>„%1“ ist kein Objekt</translation>
    </message>
    <message>
        <source>write &quot;%1&quot;: {…}</source>
        <translation>schreiben Sie &quot;%1&quot;: {…}</translation>
    </message>
    <message>
        <source>write &quot;driver&quot;: {&quot;baudRate&quot;: 115200}</source>
        <translation>schreiben Sie &quot;driver&quot;: {&quot;baudRate&quot;: 115200}</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not known</source>
        <translation>„%1“ ist nicht bekannt</translation>
    </message>
    <message>
        <source>known are: %1</source>
        <translation>bekannt sind: %1</translation>
    </message>
    <message>
        <source>the configuration %1 is not used, line %2</source>
        <translation>die Konfiguration %1 wird nicht verwendet, Zeile %2</translation>
    </message>
    <message>
        <source>the configuration %1 cannot be read</source>
        <translation>die Konfiguration %1 lässt sich nicht lesen</translation>
    </message>
    <message>
        <source>check the name and the rights of the file</source>
        <translation>prüfen Sie Namen und Rechte der Datei</translation>
    </message>
    <message>
        <source>mend the JSON text there</source>
        <translation>berichtigen Sie dort den JSON-Text</translation>
    </message>
    <message>
        <source>it is not a JSON object</source>
        <translation>sie ist kein JSON-Objekt</translation>
    </message>
    <message>
        <source>write {&quot;port&quot;: &quot;…&quot;, &quot;serialId&quot;: &quot;…&quot;}</source>
        <translation>schreiben Sie {&quot;port&quot;: &quot;…&quot;, &quot;serialId&quot;: &quot;…&quot;}</translation>
    </message>
    <message>
        <source>the configuration %1 is not used</source>
        <translation>die Konfiguration %1 wird nicht verwendet</translation>
    </message>
    <message>
        <source>it is longer than %1 bytes</source>
        <translation>sie ist länger als %1 Byte</translation>
    </message>
    <message>
        <source>name a configuration file; no configuration is so long</source>
        <translation>nennen Sie eine Konfigurationsdatei; so lang ist keine Konfiguration</translation>
    </message>
    <message>
        <source>write a list: [&quot;…&quot;, &quot;…&quot;]</source>
        <translation>schreiben Sie eine Liste: [&quot;…&quot;, &quot;…&quot;]</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a list of texts</source>
        <translation>„%1“ ist keine Liste von Texten</translation>
    </message>
</context>
<context>
    <name>ConfigurationText</name>
    <message>
        <source>%1 For example: %2</source>
        <translation>%1 Zum Beispiel: %2</translation>
    </message>
    <message>
        <source>Configuration of app_workplace. Keys that begin with // are comments. The values are the defaults; an empty text stands for &quot;not said&quot;. What is given on the command line goes before it.</source>
        <translation>Konfiguration von app_workplace. Schlüssel, die mit // beginnen, sind Kommentare. Die Werte sind die Vorgaben; ein leerer Text steht für „nicht gesagt“. Was die Befehlszeile sagt, geht vor.</translation>
    </message>
    <message>
        <source>Settings of the serial driver.</source>
        <translation>Einstellungen des seriellen Treibers.</translation>
    </message>
</context>
<context>
    <name>ConnectPage</name>
    <message>
        <source>Wrenches in range</source>
        <translation>Schlüssel in Reichweite</translation>
    </message>
    <message>
        <source>%1, %2 dBm</source>
        <comment>address, signal</comment>
        <translation>%1, %2 dBm</translation>
    </message>
    <message>
        <source>Switch the wrench on, and come closer with it.</source>
        <translation>Schalten Sie den Schlüssel ein und kommen Sie mit ihm näher.</translation>
    </message>
    <message>
        <source>Start a scan to see which ones are there.</source>
        <translation>Starten Sie eine Suche, um zu sehen, welche da sind.</translation>
    </message>
    <message>
        <source>The dongle talks to one wrench at a time; disconnect to scan.</source>
        <translation>Der Dongle spricht mit einem Schlüssel zur Zeit; trennen Sie die Verbindung, um zu suchen.</translation>
    </message>
    <message>
        <source>No wrench heard yet</source>
        <translation>Noch kein Schlüssel gehört</translation>
    </message>
    <message>
        <source>No scan yet</source>
        <translation>Noch keine Suche</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>By its number</source>
        <translation>Über die Nummer</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>Seriennummer</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>Port: %1</source>
        <translation>Anschluss: %1</translation>
    </message>
</context>
<context>
    <name>Console</name>
    <message>
        <source>The results cannot be written (%1): make room, or write them elsewhere.</source>
        <translation>Die Ergebnisse lassen sich nicht schreiben (%1): Schaffen Sie Platz, oder schreiben Sie sie anderswohin.</translation>
    </message>
</context>
<context>
    <name>DeviceModel</name>
    <message>
        <source>no loaded plugin has the command &quot;%1&quot;</source>
        <translation>kein geladenes Plugin hat den Befehl „%1“</translation>
    </message>
    <message>
        <source>name the folder of the plugins with --plugins</source>
        <translation>nennen Sie mit --plugins den Ordner der Plugins</translation>
    </message>
    <message>
        <source>which wrench is not said</source>
        <translation>es ist nicht gesagt, welcher Schlüssel</translation>
    </message>
    <message>
        <source>pick one that is in range, or type its serial number</source>
        <translation>wählen Sie einen in Reichweite, oder geben Sie seine Seriennummer ein</translation>
    </message>
    <message>
        <source>Wrench %1</source>
        <translation>Schlüssel %1</translation>
    </message>
    <message>
        <source>Simulated line</source>
        <translation>Simulierte Leitung</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>nicht verbunden</translation>
    </message>
    <message>
        <source>looking for wrenches in range</source>
        <translation>Schlüssel in Reichweite werden gesucht</translation>
    </message>
    <message>
        <source>ready: results are taken</source>
        <translation>bereit: Ergebnisse werden aufgenommen</translation>
    </message>
    <message>
        <source>link lost; attempt %1 in %2 s: %3</source>
        <translation>Verbindung verloren; Versuch %1 in %2 s: %3</translation>
    </message>
    <message>
        <source>link lost; attempt %1 to restore it</source>
        <translation>Verbindung verloren; Versuch %1, sie wiederherzustellen</translation>
    </message>
    <message>
        <source>link lost: %1</source>
        <translation>Verbindung verloren: %1</translation>
    </message>
    <message>
        <source>Program %1</source>
        <translation>Programm %1</translation>
    </message>
    <message>
        <source>going to program %1</source>
        <translation>zu Programm %1 wird gewechselt</translation>
    </message>
    <message>
        <source>locking</source>
        <translation>wird gesperrt</translation>
    </message>
    <message>
        <source>unlocking</source>
        <translation>wird entsperrt</translation>
    </message>
    <message>
        <source>no wrench is connected</source>
        <translation>kein Schlüssel ist verbunden</translation>
    </message>
    <message>
        <source>connect one first</source>
        <translation>verbinden Sie zuerst einen</translation>
    </message>
    <message>
        <source>the maintenance panel is at work</source>
        <translation>die Wartungsansicht arbeitet</translation>
    </message>
    <message>
        <source>ending: the dongle hangs up</source>
        <translation>wird beendet: der Dongle legt auf</translation>
    </message>
    <message>
        <source>opening the line</source>
        <translation>die Leitung wird geöffnet</translation>
    </message>
    <message>
        <source>looking for the wrench %1, and connecting</source>
        <translation>der Schlüssel %1 wird gesucht und verbunden</translation>
    </message>
    <message>
        <source>configuring the wrench</source>
        <translation>der Schlüssel wird konfiguriert</translation>
    </message>
    <message>
        <source>reading the programs</source>
        <translation>die Programme werden gelesen</translation>
    </message>
    <message>
        <source>selecting the program</source>
        <translation>das Programm wird gewählt</translation>
    </message>
    <message>
        <source>unlocking the wrench</source>
        <translation>der Schlüssel wird entsperrt</translation>
    </message>
</context>
<context>
    <name>DeviceRow</name>
    <message>
        <source>problem</source>
        <translation>Problem</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>nicht verbunden</translation>
    </message>
    <message>
        <source>scanning</source>
        <translation>sucht</translation>
    </message>
    <message>
        <source>connecting</source>
        <translation>verbindet</translation>
    </message>
    <message>
        <source>connected</source>
        <translation>verbunden</translation>
    </message>
    <message>
        <source>restoring</source>
        <translation>stellt wieder her</translation>
    </message>
    <message>
        <source>ending</source>
        <translation>beendet</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>DeviceRun</name>
    <message>
        <source>the device plugin has no command &quot;%1&quot;</source>
        <translation>das Geräte-Plugin hat keinen Befehl „%1“</translation>
    </message>
    <message>
        <source>the time limit of %1 s ended it, %2</source>
        <translation>die Zeitgrenze von %1 s hat ihn beendet, %2</translation>
    </message>
    <message>
        <source>there was no answer</source>
        <translation>es kam keine Antwort</translation>
    </message>
    <message>
        <source>the device plugin refused &quot;%1&quot;</source>
        <translation>das Geräte-Plugin hat „%1“ abgelehnt</translation>
    </message>
</context>
<context>
    <name>DeviceSettings</name>
    <message>
        <source>name each as PORT or PORT,NUMBER, each port once</source>
        <translation>nennen Sie jedes als PORT oder PORT,NUMMER, jeden Anschluss einmal</translation>
    </message>
    <message>
        <source>the device &quot;%1&quot; has no port</source>
        <translation>das Gerät „%1“ hat keinen Anschluss</translation>
    </message>
    <message>
        <source>two devices have the port %1</source>
        <translation>zwei Geräte haben den Anschluss %1</translation>
    </message>
    <message>
        <source>the device &quot;%1&quot; names no scenario</source>
        <translation>das Gerät „%1“ nennt kein Szenario</translation>
    </message>
</context>
<context>
    <name>Doctor</name>
    <message>
        <source>&quot;%1&quot; has failed</source>
        <translation>„%1“ ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>interrupted</source>
        <translation>unterbrochen</translation>
    </message>
    <message>
        <source>the port cannot be used</source>
        <translation>der Anschluss ist nicht nutzbar</translation>
    </message>
    <message>
        <source>locks the wrench again, as it was found (DT:1)</source>
        <translation>sperrt den Schlüssel wieder, wie er vorgefunden wurde (DT:1)</translation>
    </message>
    <message>
        <source>leaves the wrench unlocked, as it was found (DT:0)</source>
        <translation>lässt den Schlüssel entsperrt, wie er vorgefunden wurde (DT:0)</translation>
    </message>
    <message>
        <source>the wrench could not be locked again, as it was found</source>
        <translation>der Schlüssel ließ sich nicht wieder sperren, wie er vorgefunden wurde</translation>
    </message>
    <message>
        <source>the wrench could not be left unlocked, as it was found</source>
        <translation>der Schlüssel ließ sich nicht entsperrt lassen, wie er vorgefunden wurde</translation>
    </message>
    <message>
        <source>tightening results that have come meanwhile, and are not stored: %1; a session stores what comes</source>
        <translation>Verschraubungsergebnisse, die inzwischen gekommen und nicht gespeichert sind: %1; eine Sitzung speichert, was kommt</translation>
    </message>
</context>
<context>
    <name>DoctorCommand</name>
    <message>
        <source>the doctor takes no argument &quot;%1&quot;</source>
        <translation>die Untersuchung kennt kein Argument „%1“</translation>
    </message>
    <message>
        <source>see app_workplace doctor --help</source>
        <translation>siehe app_workplace doctor --help</translation>
    </message>
    <message>
        <source>Looks at the workplace step by step, and says how to mend what fails.</source>
        <translation>Untersucht den Arbeitsplatz Schritt für Schritt und sagt, wie zu beheben ist, was nicht geht.</translation>
    </message>
    <message>
        <source>Asks you to tighten once, and waits so long for the result; not done otherwise.</source>
        <translation>Bittet Sie um eine Verschraubung und wartet so lange auf das Ergebnis; sonst entfällt dies.</translation>
    </message>
    <message>
        <source>Listens so long for wrenches, instead of 5.</source>
        <translation>Horcht so lange nach Schlüsseln, statt 5.</translation>
    </message>
    <message>
        <source>Limit of each wait for an answer, instead of each one&apos;s own.</source>
        <translation>Grenze für jedes Warten auf eine Antwort, statt der jeweils eigenen.</translation>
    </message>
</context>
<context>
    <name>DoctorPage</name>
    <message>
        <source>Examine the workplace of %1</source>
        <translation>Den Arbeitsplatz von %1 untersuchen</translation>
    </message>
    <message>
        <source>Examine</source>
        <translation>Untersuchen</translation>
    </message>
    <message>
        <source>Ask for a tightening</source>
        <translation>Um eine Verschraubung bitten</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>and wait %1 s for it</source>
        <translation>und %1 s darauf warten</translation>
    </message>
    <message>
        <source>The line of %1 is in use (%2), and the doctor needs it for itself.</source>
        <translation>Die Leitung von %1 ist in Gebrauch (%2), und die Diagnose braucht sie für sich allein.</translation>
    </message>
    <message>
        <source>Stop what uses the line</source>
        <translation>Beenden, was die Leitung benutzt</translation>
    </message>
    <message>
        <source>Stop it</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Stages of the examination</source>
        <translation>Schritte der Diagnose</translation>
    </message>
</context>
<context>
    <name>DoctorStage</name>
    <message>
        <source>the port takes nothing</source>
        <translation>der Anschluss nimmt nichts an</translation>
    </message>
</context>
<context>
    <name>DoctorTable</name>
    <message>
        <source>Putting things back as they were found</source>
        <translation>Es wird alles wieder hergestellt, wie es war</translation>
    </message>
    <message>
        <source>Examining</source>
        <translation>Diagnose läuft</translation>
    </message>
    <message>
        <source>Examining: %1</source>
        <translation>Diagnose läuft: %1</translation>
    </message>
    <message>
        <source>%1 passed, %2 failed, %3 skipped</source>
        <translation>%1 in Ordnung, %2 fehlgeschlagen, %3 ausgelassen</translation>
    </message>
    <message>
        <source>Stopped: %1</source>
        <translation>Abgebrochen: %1</translation>
    </message>
    <message>
        <source>Nothing is wrong: %1</source>
        <translation>Alles in Ordnung: %1</translation>
    </message>
    <message>
        <source>Something is wrong: %1</source>
        <translation>Etwas stimmt nicht: %1</translation>
    </message>
    <message>
        <source>to do</source>
        <translation>offen</translation>
    </message>
    <message>
        <source>running</source>
        <translation>läuft</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>in Ordnung</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>fehlgeschlagen</translation>
    </message>
    <message>
        <source>skipped</source>
        <translation>ausgelassen</translation>
    </message>
</context>
<context>
    <name>DoctorTextReport</name>
    <message>
        <source>sends</source>
        <translation>sendet</translation>
    </message>
    <message>
        <source>note</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>gut</translation>
    </message>
    <message>
        <source>FAILED</source>
        <translation>FEHLER</translation>
    </message>
    <message>
        <source>skipped</source>
        <translation>entfällt</translation>
    </message>
    <message>
        <source>%1 passed, %2 failed, %3 skipped</source>
        <translation>%1 bestanden, %2 fehlgeschlagen, %3 entfallen</translation>
    </message>
    <message>
        <source>Interrupted: %1</source>
        <translation>Unterbrochen: %1</translation>
    </message>
    <message>
        <source>Nothing is wrong: %1</source>
        <translation>Alles in Ordnung: %1</translation>
    </message>
    <message>
        <source>Something is wrong: %1</source>
        <translation>Etwas stimmt nicht: %1</translation>
    </message>
</context>
<context>
    <name>DongleStage</name>
    <message>
        <source>a dongle answers, and no other device</source>
        <translation>ein Funkadapter antwortet und kein anderes Gerät</translation>
    </message>
    <message>
        <source>ATS to the dongle, which begins a search</source>
        <translation>ATS an den Funkadapter, der eine Suche beginnt</translation>
    </message>
    <message>
        <source>nobody answers, the line only repeats what is sent</source>
        <translation>niemand antwortet, die Leitung wiederholt nur das Gesendete</translation>
    </message>
    <message>
        <source>it said %1</source>
        <translation>er sagte %1</translation>
    </message>
    <message>
        <source>take the loop-back plug off, or choose the dongle&apos;s port; &quot;app_workplace ports&quot; lists the ports</source>
        <translation>ziehen Sie den Prüfstecker ab, oder wählen Sie den Anschluss des Funkadapters; „app_workplace ports“ listet die Anschlüsse auf</translation>
    </message>
    <message>
        <source>another device than a dongle answers</source>
        <translation>ein anderes Gerät als ein Funkadapter antwortet</translation>
    </message>
    <message>
        <source>choose the dongle&apos;s port; &quot;app_workplace ports&quot; lists the ports</source>
        <translation>wählen Sie den Anschluss des Funkadapters; „app_workplace ports“ listet die Anschlüsse auf</translation>
    </message>
    <message>
        <source>the dongle refuses to search</source>
        <translation>der Funkadapter verweigert die Suche</translation>
    </message>
    <message>
        <source>it said &quot;%1&quot;</source>
        <translation>er sagte „%1“</translation>
    </message>
    <message>
        <source>unplug the dongle, plug it in again and try once more</source>
        <translation>ziehen Sie den Funkadapter ab, stecken Sie ihn wieder ein und versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>a dongle answers; it keeps a link that is open</source>
        <translation>ein Funkadapter antwortet; er hält eine offene Verbindung</translation>
    </message>
    <message>
        <source>a dongle answers</source>
        <translation>ein Funkadapter antwortet</translation>
    </message>
</context>
<context>
    <name>DriverSettings</name>
    <message>
        <source>write &quot;%1&quot; beside &quot;driver&quot;</source>
        <translation>schreiben Sie „%1“ neben „driver“</translation>
    </message>
    <message>
        <source>known are: %1</source>
        <translation>bekannt sind: %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no setting of the driver</source>
        <translation>„%1“ ist keine Einstellung des Treibers</translation>
    </message>
</context>
<context>
    <name>GuiCommand</name>
    <message>
        <source>--%1 cannot be &quot;%2&quot;</source>
        <translation>--%1 kann nicht „%2“ sein</translation>
    </message>
    <message>
        <source>choose one of: %1</source>
        <translation>wählen Sie eins davon: %1</translation>
    </message>
    <message>
        <source>the window takes no argument &quot;%1&quot;</source>
        <translation>das Fenster nimmt kein Argument „%1“</translation>
    </message>
    <message>
        <source>see app_workplace gui --help</source>
        <translation>siehe app_workplace gui --help</translation>
    </message>
    <message>
        <source>Shows the window: the work, the results, maintenance, trace and doctor.</source>
        <translation>Zeigt das Fenster: Arbeit, Ergebnisse, Wartung, Mitschnitt und Diagnose.</translation>
    </message>
    <message>
        <source>A device of the window, instead of that of --port and --serial-id. More than once: several.</source>
        <translation>Ein Gerät des Fensters, statt dem von --port und --serial-id. Mehrmals: mehrere.</translation>
    </message>
    <message>
        <source>Each device whose wrench is known begins to work at once.</source>
        <translation>Jedes Gerät, dessen Schlüssel bekannt ist, beginnt sofort zu arbeiten.</translation>
    </message>
    <message>
        <source>The page to begin with.</source>
        <translation>Die erste Seite.</translation>
    </message>
    <message>
        <source>How it looks.</source>
        <translation>Wie es aussieht.</translation>
    </message>
    <message>
        <source>Draws the window into this PNG file and ends; no display is needed.</source>
        <translation>Zeichnet das Fenster in diese PNG-Datei und endet; ein Bildschirm wird nicht gebraucht.</translation>
    </message>
    <message>
        <source>With --screenshot and --connect: when so many results have come.</source>
        <translation>Mit --screenshot und --connect: sobald so viele Ergebnisse da sind.</translation>
    </message>
    <message>
        <source>the window cannot be made</source>
        <translation>das Fenster lässt sich nicht öffnen</translation>
    </message>
    <message>
        <source>see the log above</source>
        <translation>siehe das Protokoll oben</translation>
    </message>
    <message>
        <source>install the packages that &quot;./run gui&quot; names</source>
        <translation>installieren Sie die Pakete, die „./run gui“ nennt</translation>
    </message>
    <message>
        <source>the window did not come to what is to be drawn</source>
        <translation>das Fenster kam nicht zu dem, was gezeichnet werden soll</translation>
    </message>
    <message>
        <source>the picture cannot be written to %1</source>
        <translation>das Bild lässt sich nicht nach %1 schreiben</translation>
    </message>
    <message>
        <source>look at the folder and its rights</source>
        <translation>prüfen Sie den Ordner und seine Rechte</translation>
    </message>
    <message>
        <source>see that the folder can be written, or name another with --data</source>
        <translation>sorgen Sie dafür, dass der Ordner beschreibbar ist, oder nennen Sie mit --data einen anderen</translation>
    </message>
    <message>
        <source>how the window looks cannot be kept in %1</source>
        <translation>das Aussehen des Fensters kann nicht in %1 aufgehoben werden</translation>
    </message>
    <message>
        <source>how the window looked cannot be read from %1</source>
        <translation>das Aussehen des Fensters kann nicht aus %1 gelesen werden</translation>
    </message>
    <message>
        <source>choose theme and language anew; that replaces the file</source>
        <translation>wählen Sie Farben und Sprache neu; das ersetzt die Datei</translation>
    </message>
    <message>
        <source>say it in pixels, as 1280x800: from 640x480 to 7680x4320</source>
        <translation>geben Sie sie in Pixeln an, etwa 1280x800: von 640x480 bis 7680x4320</translation>
    </message>
    <message>
        <source>The size of the window in pixels, 640x480 to 7680x4320; 1280x800 when not said.</source>
        <translation>Die Größe des Fensters in Pixeln, 640x480 bis 7680x4320; ohne Angabe 1280x800.</translation>
    </message>
</context>
<context>
    <name>HeardWrenches</name>
    <message>
        <source>the wrench %1 was heard, but the link to it did not come about</source>
        <translation>der Schlüssel %1 war zu hören, aber die Funkstrecke zu ihm kam nicht zustande</translation>
    </message>
    <message>
        <source>%1 (%2 dBm)</source>
        <translation>%1 (%2 dBm)</translation>
    </message>
    <message>
        <source>no wrench was heard</source>
        <translation>es war kein Schlüssel zu hören</translation>
    </message>
    <message>
        <source>the wrench %1 was not heard, only %2</source>
        <translation>der Schlüssel %1 war nicht zu hören, nur %2</translation>
    </message>
</context>
<context>
    <name>History</name>
    <message>
        <source>Qt&apos;s driver for SQLite is not installed (Debian: libqt5sql5-sqlite)</source>
        <translation>der SQLite-Treiber von Qt ist nicht installiert (Debian: libqt5sql5-sqlite)</translation>
    </message>
    <message>
        <source>the file %1 is not written</source>
        <translation>die Datei %1 wird nicht geschrieben</translation>
    </message>
    <message>
        <source>make room and check the rights of its folder, or name another file</source>
        <translation>schaffen Sie Platz und prüfen Sie die Rechte des Ordners, oder nennen Sie eine andere Datei</translation>
    </message>
    <message>
        <source>another program keeps %1 locked (%2)</source>
        <translation>ein anderes Programm hält %1 gesperrt (%2)</translation>
    </message>
    <message>
        <source>close the program that holds it, then start again</source>
        <translation>schließen Sie das Programm, das sie festhält, und starten Sie neu</translation>
    </message>
    <message>
        <source>%1 cannot be written (%2)</source>
        <translation>%1 lässt sich nicht schreiben (%2)</translation>
    </message>
    <message>
        <source>give this user the right to write the file and its folder %1, or name another folder with --data</source>
        <translation>geben Sie diesem Benutzer Schreibrecht auf die Datei und ihren Ordner %1, oder nennen Sie mit --data einen anderen Ordner</translation>
    </message>
    <message>
        <source>%1 cannot be opened (%2)</source>
        <translation>%1 lässt sich nicht öffnen (%2)</translation>
    </message>
    <message>
        <source>give this user the right to write in the folder %1, or name another folder with --data</source>
        <translation>geben Sie diesem Benutzer Schreibrecht im Ordner %1, oder nennen Sie mit --data einen anderen Ordner</translation>
    </message>
    <message>
        <source>there is no room for it in %1 (%2)</source>
        <translation>in %1 ist kein Platz dafür (%2)</translation>
    </message>
    <message>
        <source>make room on that disk, then start again</source>
        <translation>schaffen Sie Platz auf diesem Datenträger und starten Sie neu</translation>
    </message>
    <message>
        <source>the disk refuses %1 (%2)</source>
        <translation>der Datenträger verweigert %1 (%2)</translation>
    </message>
    <message>
        <source>check the room and the health of the disk that holds %1, then start again</source>
        <translation>prüfen Sie Platz und Zustand des Datenträgers mit %1 und starten Sie neu</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>mend the cause, then start again</source>
        <translation>beheben Sie die Ursache und starten Sie neu</translation>
    </message>
    <message>
        <source>the history %1 is not used, and was left as it is</source>
        <translation>der Verlauf %1 wird nicht verwendet und blieb unverändert</translation>
    </message>
    <message>
        <source>put a backup in its place, or move %1 and the files beside it that begin with its name elsewhere; docs/history.md says what can be read from them</source>
        <translation>setzen Sie eine Sicherung an seine Stelle, oder verschieben Sie %1 und die Dateien daneben, die mit dessen Namen beginnen; docs/history.md sagt, was sich daraus lesen lässt</translation>
    </message>
    <message>
        <source>the history cannot be read</source>
        <translation>der Verlauf lässt sich nicht lesen</translation>
    </message>
    <message>
        <source>the history cannot be written</source>
        <translation>der Verlauf lässt sich nicht schreiben</translation>
    </message>
    <message>
        <source>its disk has no shared memory</source>
        <translation>ihr Datenträger hat keinen gemeinsamen Speicher</translation>
    </message>
    <message>
        <source>name a folder on a local disk with --data</source>
        <translation>nennen Sie mit --data einen Ordner auf einem lokalen Datenträger</translation>
    </message>
    <message>
        <source>the history cannot be brought up to date</source>
        <translation>der Verlauf lässt sich nicht auf den neuen Stand bringen</translation>
    </message>
    <message>
        <source>the history cannot be begun</source>
        <translation>der Verlauf lässt sich nicht anlegen</translation>
    </message>
    <message>
        <source>make room and give this user the right to write in the folder %1, or name another folder with --data</source>
        <translation>schaffen Sie Platz und geben Sie diesem Benutzer Schreibrecht im Ordner %1, oder nennen Sie mit --data einen anderen Ordner</translation>
    </message>
    <message>
        <source>the folder %1 cannot be made</source>
        <translation>der Ordner %1 lässt sich nicht anlegen</translation>
    </message>
    <message>
        <source>the history %1 cannot be read</source>
        <translation>der Verlauf %1 lässt sich nicht lesen</translation>
    </message>
    <message>
        <source>its beginning is damaged</source>
        <translation>ihr Anfang ist beschädigt</translation>
    </message>
    <message>
        <source>another program has made it</source>
        <translation>ein anderes Programm hat sie angelegt</translation>
    </message>
    <message>
        <source>name another folder with --data</source>
        <translation>nennen Sie mit --data einen anderen Ordner</translation>
    </message>
    <message>
        <source>a newer program has written it (version %1; this one knows %2)</source>
        <translation>ein neueres Programm hat sie geschrieben (Version %1; dieses kennt %2)</translation>
    </message>
    <message>
        <source>use the newer program, or name another folder with --data</source>
        <translation>verwenden Sie das neuere Programm, oder nennen Sie mit --data einen anderen Ordner</translation>
    </message>
    <message>
        <source>an older program has written it (version %1)</source>
        <translation>ein älteres Programm hat sie geschrieben (Version %1)</translation>
    </message>
    <message>
        <source>begin a session once; it brings the file up to date</source>
        <translation>beginnen Sie einmal eine Sitzung; sie bringt die Datei auf den neuen Stand</translation>
    </message>
    <message>
        <source>it is damaged: %1</source>
        <translation>sie ist beschädigt: %1</translation>
    </message>
    <message>
        <source>the result cannot be stored</source>
        <translation>das Ergebnis lässt sich nicht speichern</translation>
    </message>
    <message>
        <source>the file %1 is there already</source>
        <translation>die Datei %1 gibt es schon</translation>
    </message>
    <message>
        <source>replace it, or name another one</source>
        <translation>ersetzen Sie sie, oder nennen Sie eine andere</translation>
    </message>
    <message>
        <source>check the file, its folder and the rights of both, or name another folder with --data</source>
        <translation>prüfen Sie die Datei, ihren Ordner und die Rechte beider, oder nennen Sie mit --data einen anderen Ordner</translation>
    </message>
</context>
<context>
    <name>HistoryTable</name>
    <message>
        <source>good</source>
        <translation>i.O.</translation>
    </message>
    <message>
        <source>not good</source>
        <translation>n.i.O.</translation>
    </message>
</context>
<context>
    <name>JsonObjectFile</name>
    <message>
        <source>it holds no JSON object</source>
        <translation>sie enthält kein JSON-Objekt</translation>
    </message>
    <message>
        <source>it is longer than %1 bytes</source>
        <translation>sie ist länger als %1 Byte</translation>
    </message>
</context>
<context>
    <name>Language</name>
    <message>
        <source>there is no language &quot;%1&quot;</source>
        <translation>die Sprache „%1“ gibt es nicht</translation>
    </message>
    <message>
        <source>choose one of: %1</source>
        <translation>wählen Sie eine von: %1</translation>
    </message>
</context>
<context>
    <name>LineObserver</name>
    <message>
        <source>the line said &quot;%1&quot;</source>
        <translation>auf der Leitung kam „%1“</translation>
    </message>
</context>
<context>
    <name>LineStage</name>
    <message>
        <source>the line takes frames, and text comes back</source>
        <translation>die Leitung nimmt Telegramme an, und Text kommt zurück</translation>
    </message>
    <message>
        <source>ATH and ATS to the dongle, which end an open link and begin a search</source>
        <translation>ATH und ATS an den Funkadapter; sie beenden eine offene Verbindung und beginnen eine Suche</translation>
    </message>
    <message>
        <source>text comes back</source>
        <translation>Text kommt zurück</translation>
    </message>
    <message>
        <source>what comes back is no text; tries other speeds: %1</source>
        <translation>was zurückkommt, ist kein Text; andere Geschwindigkeiten werden versucht: %1</translation>
    </message>
    <message>
        <source>nothing comes back; tries other speeds: %1</source>
        <translation>nichts kommt zurück; andere Geschwindigkeiten werden versucht: %1</translation>
    </message>
    <message>
        <source>the dongle answers at another speed: %1</source>
        <translation>der Funkadapter antwortet mit einer anderen Geschwindigkeit: %1</translation>
    </message>
    <message>
        <source>it said %1 there</source>
        <translation>dort sagte er %1</translation>
    </message>
    <message>
        <source>set &quot;baudRate&quot; in the configuration file: &quot;driver&quot;: {&quot;baudRate&quot;: %1}</source>
        <translation>stellen Sie „baudRate“ in der Konfigurationsdatei ein: &quot;driver&quot;: {&quot;baudRate&quot;: %1}</translation>
    </message>
    <message>
        <source>another device than a dongle answers, at another speed: %1</source>
        <translation>ein anderes Gerät als ein Funkadapter antwortet, mit einer anderen Geschwindigkeit: %1</translation>
    </message>
    <message>
        <source>choose the dongle&apos;s port; &quot;app_workplace ports&quot; lists the ports</source>
        <translation>wählen Sie den Anschluss des Funkadapters; „app_workplace ports“ listet die Anschlüsse auf</translation>
    </message>
    <message>
        <source>what comes back is no text, at none of the common speeds</source>
        <translation>was zurückkommt, ist bei keiner üblichen Geschwindigkeit Text</translation>
    </message>
    <message>
        <source>the other end has another format, or the line is disturbed</source>
        <translation>die Gegenstelle hat ein anderes Format, oder die Leitung ist gestört</translation>
    </message>
    <message>
        <source>set &quot;baudRate&quot;, &quot;dataBits&quot;, &quot;parity&quot; and &quot;stopBits&quot; in the configuration file to those of the dongle, and check the cable</source>
        <translation>stellen Sie „baudRate“, „dataBits“, „parity“ und „stopBits“ in der Konfigurationsdatei auf die Werte des Funkadapters, und prüfen Sie das Kabel</translation>
    </message>
    <message>
        <source>nothing answers on the port</source>
        <translation>am Anschluss antwortet nichts</translation>
    </message>
    <message>
        <source>ATH and ATS were sent at each speed, and nothing came back</source>
        <translation>ATH und ATS wurden mit jeder Geschwindigkeit gesendet, und nichts kam zurück</translation>
    </message>
    <message>
        <source>choose the dongle&apos;s port (&quot;app_workplace ports&quot; lists the ports), and check the dongle&apos;s power and cable</source>
        <translation>wählen Sie den Anschluss des Funkadapters („app_workplace ports“ listet die Anschlüsse auf), und prüfen Sie seine Versorgung und sein Kabel</translation>
    </message>
</context>
<context>
    <name>LineState</name>
    <message>
        <source>open</source>
        <translation>offen</translation>
    </message>
    <message>
        <source>closed</source>
        <translation>geschlossen</translation>
    </message>
    <message>
        <source>lost</source>
        <translation>verloren</translation>
    </message>
    <message>
        <source>no answer</source>
        <translation>keine Antwort</translation>
    </message>
    <message>
        <source>no link</source>
        <translation>keine Funkstrecke</translation>
    </message>
</context>
<context>
    <name>LinkBar</name>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>Trennen</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
</context>
<context>
    <name>LinkStage</name>
    <message>
        <source>the radio link to the wrench opens</source>
        <translation>die Funkstrecke zum Schlüssel kommt zustande</translation>
    </message>
    <message>
        <source>ATD and the wrench&apos;s address to the dongle, and ATH behind it, as a session does</source>
        <translation>ATD und die Adresse des Schlüssels an den Funkadapter, danach ATH, wie in einer Sitzung</translation>
    </message>
    <message>
        <source>a link is open already</source>
        <translation>es besteht schon eine Verbindung</translation>
    </message>
    <message>
        <source>the link to the wrench %1 opens</source>
        <translation>die Funkstrecke zum Schlüssel %1 kommt zustande</translation>
    </message>
    <message>
        <source>the radio link to the wrench %1 does not open</source>
        <translation>die Funkstrecke zum Schlüssel %1 kommt nicht zustande</translation>
    </message>
    <message>
        <source>the dongle did not answer</source>
        <translation>der Funkadapter hat nicht geantwortet</translation>
    </message>
    <message>
        <source>the dongle said only %1</source>
        <translation>der Funkadapter sagte nur %1</translation>
    </message>
    <message>
        <source>unplug the dongle, plug it in again and try once more</source>
        <translation>ziehen Sie den Funkadapter ab, stecken Sie ihn wieder ein und versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>the radio link to the wrench %1 is refused</source>
        <translation>die Funkstrecke zum Schlüssel %1 wird verweigert</translation>
    </message>
    <message>
        <source>the dongle said &quot;%1&quot;</source>
        <translation>der Funkadapter sagte „%1“</translation>
    </message>
    <message>
        <source>switch the wrench off and on, bring it near, and see that no other dongle is linked to it</source>
        <translation>schalten Sie den Schlüssel aus und ein, bringen Sie ihn näher, und sorgen Sie dafür, dass kein anderer Funkadapter mit ihm verbunden ist</translation>
    </message>
    <message>
        <source>the dongle has linked another wrench than %1</source>
        <translation>der Funkadapter hat einen anderen Schlüssel als %1 verbunden</translation>
    </message>
    <message>
        <source>%1 was to be dialled, and the dongle said %2</source>
        <translation>%1 sollte gewählt werden, und der Funkadapter sagte %2</translation>
    </message>
</context>
<context>
    <name>LockCard</name>
    <message>
        <source>Lock: not known</source>
        <translation>Sperre: unbekannt</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>Gesperrt</translation>
    </message>
    <message>
        <source>Unlocked</source>
        <translation>Entsperrt</translation>
    </message>
    <message>
        <source>Lock</source>
        <translation>Sperren</translation>
    </message>
    <message>
        <source>Unlock</source>
        <translation>Entsperren</translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>app_workplace %1</source>
        <translation>app_workplace %1</translation>
    </message>
    <message>
        <source>no configuration file</source>
        <translation>keine Konfigurationsdatei</translation>
    </message>
    <message>
        <source>configuration file %1</source>
        <translation>Konfigurationsdatei %1</translation>
    </message>
    <message>
        <source>%1 ended after %2 s with exit status %3</source>
        <translation>%1 endete nach %2 s mit dem Endestatus %3</translation>
    </message>
    <message>
        <source>Work</source>
        <translation>Arbeit</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>Results</source>
        <translation>Ergebnisse</translation>
    </message>
    <message>
        <source>Maintenance</source>
        <translation>Wartung</translation>
    </message>
    <message>
        <source>Trace</source>
        <translation>Mitschnitt</translation>
    </message>
    <message>
        <source>Doctor</source>
        <translation>Diagnose</translation>
    </message>
    <message>
        <source>%1 – %2 – Workplace</source>
        <translation>%1 – %2 – Schraubplatz</translation>
    </message>
    <message>
        <source>%1 – Workplace</source>
        <translation>%1 – Schraubplatz</translation>
    </message>
</context>
<context>
    <name>NumberOptions</name>
    <message>
        <source>--%1 takes %2, not &quot;%3&quot;</source>
        <translation>--%1 nimmt %2, nicht „%3“</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <translation>eine ganze Zahl von %1 bis %2</translation>
    </message>
    <message>
        <source>seconds from %1 to %2</source>
        <translation>Sekunden von %1 bis %2</translation>
    </message>
</context>
<context>
    <name>PanelPage</name>
    <message>
        <source>Panel of</source>
        <translation>Tafel von</translation>
    </message>
    <message>
        <source>It comes with the first scan or connection, which loads the plugin and opens the line.</source>
        <translation>Es kommt mit der ersten Suche oder Verbindung; dann wird das Plugin geladen und die Leitung geöffnet.</translation>
    </message>
    <message>
        <source>The maintenance panel is not there yet</source>
        <translation>Die Wartungstafel ist noch nicht da</translation>
    </message>
    <message>
        <source>Connect a wrench</source>
        <translation>Einen Schlüssel verbinden</translation>
    </message>
</context>
<context>
    <name>PanelView</name>
    <message>
        <source>there is no maintenance panel for this device</source>
        <translation>für dieses Gerät gibt es keine Wartungstafel</translation>
    </message>
    <message>
        <source>its plugin %1 brings none</source>
        <translation>sein Plugin %1 bringt keine mit</translation>
    </message>
    <message>
        <source>the maintenance panel of this device cannot be shown</source>
        <translation>die Wartungstafel dieses Geräts lässt sich nicht zeigen</translation>
    </message>
    <message>
        <source>mend the panel&apos;s document in the plugin %1</source>
        <translation>das Dokument der Tafel im Plugin %1 berichtigen</translation>
    </message>
    <message>
        <source>its root is a %1, which is nothing to be shown</source>
        <translation>seine Wurzel ist ein %1, das lässt sich nicht zeigen</translation>
    </message>
</context>
<context>
    <name>Parameters</name>
    <message>
        <source>true or false</source>
        <translation>true oder false</translation>
    </message>
    <message>
        <source>a whole number</source>
        <translation>eine ganze Zahl</translation>
    </message>
    <message>
        <source>a whole number, 0 or more</source>
        <translation>eine ganze Zahl ab 0</translation>
    </message>
    <message>
        <source>a text (escapes: \r \n \t \\ \xHH)</source>
        <translation>einen Text (Sonderzeichen: \r \n \t \\ \xHH)</translation>
    </message>
    <message>
        <source>a JSON object</source>
        <translation>ein JSON-Objekt</translation>
    </message>
    <message>
        <source>a JSON array</source>
        <translation>ein JSON-Array</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not of the form name=value</source>
        <translation>„%1“ hat nicht die Form Name=Wert</translation>
    </message>
    <message>
        <source>the parameter &quot;%1&quot; is given twice</source>
        <translation>der Parameter „%1“ ist zweimal angegeben</translation>
    </message>
    <message>
        <source>the command &quot;%1&quot; has no parameter &quot;%2&quot;; it has: %3</source>
        <translation>der Befehl „%1“ hat keinen Parameter „%2“; er hat: %3</translation>
    </message>
    <message>
        <source>the parameter &quot;%1&quot; of &quot;%2&quot; takes %3, not &quot;%4&quot;</source>
        <translation>der Parameter „%1“ von „%2“ nimmt %3, nicht „%4“</translation>
    </message>
    <message>
        <source>the command &quot;%1&quot; needs the parameter &quot;%2&quot;: %3=%4</source>
        <translation>der Befehl „%1“ braucht den Parameter „%2“: %3=%4</translation>
    </message>
</context>
<context>
    <name>PluginsStage</name>
    <message>
        <source>the libraries fit, the plugins load and make their devices</source>
        <translation>die Bibliotheken passen, die Plugins lassen sich laden und stellen ihre Geräte bereit</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>the driver plugin cannot be used here</source>
        <translation>das Treiber-Plugin ist hier nicht verwendbar</translation>
    </message>
    <message>
        <source>the device plugin cannot be used here</source>
        <translation>das Geräte-Plugin ist hier nicht verwendbar</translation>
    </message>
    <message>
        <source>it has no command &quot;%1&quot;</source>
        <translation>es hat keinen Befehl „%1“</translation>
    </message>
    <message>
        <source>name the folder of the right plugins with --plugins</source>
        <translation>nennen Sie mit --plugins den Ordner der richtigen Plugins</translation>
    </message>
    <message>
        <source>%1; Qt %2</source>
        <translation>%1; Qt %2</translation>
    </message>
</context>
<context>
    <name>PortStage</name>
    <message>
        <source>the port exists, is permitted and is free</source>
        <translation>der Anschluss ist da, erlaubt und frei</translation>
    </message>
    <message>
        <source>the port could not be opened</source>
        <translation>der Anschluss ließ sich nicht öffnen</translation>
    </message>
    <message>
        <source>the driver did not say why</source>
        <translation>der Treiber hat keinen Grund genannt</translation>
    </message>
    <message>
        <source>check the port and the cable; &quot;app_workplace ports&quot; lists the ports</source>
        <translation>prüfen Sie Anschluss und Kabel; „app_workplace ports“ listet die Anschlüsse auf</translation>
    </message>
    <message>
        <source>%1 is open, for this program alone</source>
        <translation>%1 ist offen, für dieses Programm allein</translation>
    </message>
</context>
<context>
    <name>PortsCommand</name>
    <message>
        <source>the list of ports takes no argument &quot;%1&quot;</source>
        <translation>die Liste der Anschlüsse kennt kein Argument „%1“</translation>
    </message>
    <message>
        <source>see app_workplace ports --help</source>
        <translation>siehe app_workplace ports --help</translation>
    </message>
    <message>
        <source>Lists the serial ports of this machine.</source>
        <translation>Listet die seriellen Anschlüsse dieses Rechners auf.</translation>
    </message>
    <message>
        <source>port</source>
        <translation>Anschluss</translation>
    </message>
    <message>
        <source>usable</source>
        <translation>nutzbar</translation>
    </message>
    <message>
        <source>lasting name</source>
        <translation>bleibender Name</translation>
    </message>
    <message>
        <source>description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>no right</source>
        <translation>kein Recht</translation>
    </message>
    <message>
        <source>This machine has no serial port; plug the adapter in and call this again.</source>
        <translation>Dieser Rechner hat keinen seriellen Anschluss; stecken Sie den Adapter ein und rufen Sie dies noch einmal auf.</translation>
    </message>
</context>
<context>
    <name>Problem</name>
    <message>
        <source>  why: %1</source>
        <translation>  warum: %1</translation>
    </message>
    <message>
        <source>  do:  %1</source>
        <translation>  Abhilfe: %1</translation>
    </message>
</context>
<context>
    <name>ProgramList</name>
    <message>
        <source>%1 %2</source>
        <comment>torque, unit</comment>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>%1 °</source>
        <comment>angle</comment>
        <translation>%1°</translation>
    </message>
    <message>
        <source>Programs</source>
        <translation>Programme</translation>
    </message>
    <message>
        <source>They are read from the wrench when it is connected.</source>
        <translation>Sie werden beim Verbinden vom Schlüssel gelesen.</translation>
    </message>
    <message>
        <source>No programs</source>
        <translation>Keine Programme</translation>
    </message>
</context>
<context>
    <name>ProgramsStage</name>
    <message>
        <source>the programs of the wrench can be read</source>
        <translation>die Programme des Schlüssels lassen sich lesen</translation>
    </message>
    <message>
        <source>IDLE, TR:C and TR:N to the wrench: its first program is the current one afterwards</source>
        <translation>IDLE, TR:C und TR:N an den Schlüssel: danach ist sein erstes Programm das aktuelle</translation>
    </message>
    <message>
        <source>the device plugin has no command &quot;%1&quot;</source>
        <translation>das Geräte-Plugin hat keinen Befehl „%1“</translation>
    </message>
    <message>
        <source>name another folder with --plugins</source>
        <translation>nennen Sie mit --plugins einen anderen Ordner</translation>
    </message>
    <message>
        <source>1 program</source>
        <translation>1 Programm</translation>
    </message>
    <message>
        <source>%1 programs</source>
        <translation>%1 Programme</translation>
    </message>
    <message>
        <source>the device plugin refuses to read the programs</source>
        <translation>das Geräte-Plugin verweigert das Lesen der Programme</translation>
    </message>
    <message>
        <source>the wrench did not answer</source>
        <translation>der Schlüssel hat nicht geantwortet</translation>
    </message>
    <message>
        <source>the last that was said is &quot;%1&quot;</source>
        <translation>zuletzt wurde „%1“ gesagt</translation>
    </message>
    <message>
        <source>the programs cannot be read while a tightening is running</source>
        <translation>während einer Verschraubung lassen sich die Programme nicht lesen</translation>
    </message>
    <message>
        <source>finish the tightening, or wait until it is over, and try again</source>
        <translation>beenden Sie die Verschraubung, oder warten Sie ihr Ende ab, und versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>the programs could be read only in part: %1</source>
        <translation>die Programme ließen sich nur teilweise lesen: %1</translation>
    </message>
    <message>
        <source>bring the wrench nearer and try again</source>
        <translation>bringen Sie den Schlüssel näher und versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>the programs of the wrench cannot be read</source>
        <translation>die Programme des Schlüssels lassen sich nicht lesen</translation>
    </message>
    <message>
        <source>bring the wrench nearer and try again; see that the wrench holds a program</source>
        <translation>bringen Sie den Schlüssel näher und versuchen Sie es noch einmal; sehen Sie nach, ob er ein Programm enthält</translation>
    </message>
</context>
<context>
    <name>RangeStage</name>
    <message>
        <source>the wrench is in range, once, with a good signal</source>
        <translation>der Schlüssel ist in Reichweite, nur einmal und mit gutem Signal</translation>
    </message>
    <message>
        <source>ATH to the dongle, which ends the search</source>
        <translation>ATH an den Funkadapter, das die Suche beendet</translation>
    </message>
    <message>
        <source>a dongle that keeps a link does not search, and does not say to which wrench the link is</source>
        <translation>ein Funkadapter, der eine Verbindung hält, sucht nicht und sagt nicht, zu welchem Schlüssel sie besteht</translation>
    </message>
    <message>
        <source>switch the wrench on and bring it near the dongle</source>
        <translation>schalten Sie den Schlüssel ein und bringen Sie ihn in die Nähe des Funkadapters</translation>
    </message>
    <message>
        <source>no wrench is in range</source>
        <translation>kein Schlüssel ist in Reichweite</translation>
    </message>
    <message>
        <source>which wrench is to be examined is not said, and several are in range</source>
        <translation>welcher Schlüssel zu untersuchen ist, ist nicht gesagt, und mehrere sind in Reichweite</translation>
    </message>
    <message>
        <source>the wrench %1 is not in range</source>
        <translation>der Schlüssel %1 ist nicht in Reichweite</translation>
    </message>
    <message>
        <source>no wrench was heard</source>
        <translation>es war kein Schlüssel zu hören</translation>
    </message>
    <message>
        <source>only these were heard: %1</source>
        <translation>nur diese waren zu hören: %1</translation>
    </message>
    <message>
        <source>%1, or check the serial number</source>
        <translation>%1, oder prüfen Sie die Seriennummer</translation>
    </message>
    <message>
        <source>%1 wrenches answer to the serial number %2</source>
        <translation>%1 Schlüssel melden sich mit der Seriennummer %2</translation>
    </message>
    <message>
        <source>switch off all but one of them, and have the others given serial numbers of their own</source>
        <translation>schalten Sie alle bis auf einen aus, und lassen Sie den anderen eigene Seriennummern geben</translation>
    </message>
    <message>
        <source>the signal of the wrench %1 is weak: %2 dBm</source>
        <translation>das Signal des Schlüssels %1 ist schwach: %2 dBm</translation>
    </message>
    <message>
        <source>below %1 dBm frames get lost</source>
        <translation>unter %1 dBm gehen Telegramme verloren</translation>
    </message>
    <message>
        <source>bring wrench and dongle nearer to each other, with nothing of metal between them</source>
        <translation>bringen Sie Schlüssel und Funkadapter näher zueinander, ohne Metall dazwischen</translation>
    </message>
    <message>
        <source>the wrench %1 is heard with %2 dBm</source>
        <translation>der Schlüssel %1 ist mit %2 dBm zu hören</translation>
    </message>
</context>
<context>
    <name>ResultCard</name>
    <message>
        <source>GOOD</source>
        <translation>i.O.</translation>
    </message>
    <message>
        <source>NOT GOOD</source>
        <translation>n.i.O.</translation>
    </message>
    <message>
        <source>Connect to a wrench first.</source>
        <translation>Verbinden Sie sich zuerst mit einem Schlüssel.</translation>
    </message>
    <message>
        <source>Tighten: the result appears here.</source>
        <translation>Schrauben Sie: Das Ergebnis erscheint hier.</translation>
    </message>
    <message>
        <source>As soon as the wrench is ready, tighten.</source>
        <translation>Sobald der Schlüssel bereit ist, schrauben Sie.</translation>
    </message>
    <message>
        <source>%1, torque %2 %3</source>
        <translation>%1, Drehmoment %2 %3</translation>
    </message>
    <message>
        <source>No result yet</source>
        <translation>Noch kein Ergebnis</translation>
    </message>
    <message>
        <source>angle</source>
        <translation>Winkel</translation>
    </message>
    <message>
        <source>direction</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <source>reading</source>
        <translation>Messung</translation>
    </message>
    <message>
        <source>program</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>at</source>
        <translation>um</translation>
    </message>
</context>
<context>
    <name>ResultDetails</name>
    <message>
        <source>torque</source>
        <translation>Drehmoment</translation>
    </message>
    <message>
        <source>direction</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <source>status of the torque</source>
        <translation>Status des Drehmoments</translation>
    </message>
    <message>
        <source>angle from snug torque</source>
        <translation>Winkel ab Fügemoment</translation>
    </message>
    <message>
        <source>status of the angle</source>
        <translation>Status des Winkels</translation>
    </message>
    <message>
        <source>number of the reading</source>
        <translation>Nummer der Messung</translation>
    </message>
    <message>
        <source>status of the reading</source>
        <translation>Status der Messung</translation>
    </message>
    <message>
        <source>number of the chunk of input</source>
        <translation>Nummer des Eingangsstücks</translation>
    </message>
    <message>
        <source>program</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>target angle</source>
        <translation>Zielwinkel</translation>
    </message>
    <message>
        <source>target torque, in hundredths</source>
        <translation>Zielmoment, in Hundertsteln</translation>
    </message>
    <message>
        <source>snug torque</source>
        <translation>Fügemoment</translation>
    </message>
    <message>
        <source>readings</source>
        <translation>Messungen</translation>
    </message>
    <message>
        <source>(an empty text)</source>
        <translation>(ein leerer Text)</translation>
    </message>
    <message>
        <source>(not received)</source>
        <translation>(nicht empfangen)</translation>
    </message>
    <message>
        <source>line as received</source>
        <translation>Zeile wie empfangen</translation>
    </message>
    <message>
        <source>(not known)</source>
        <translation>(nicht bekannt)</translation>
    </message>
    <message>
        <source>first after a reconnection</source>
        <translation>erstes nach einer Wiederverbindung</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>counter</source>
        <translation>Zähler</translation>
    </message>
    <message>
        <source>last number before it</source>
        <translation>letzte Nummer davor</translation>
    </message>
    <message>
        <source>number behind it</source>
        <translation>Nummer danach</translation>
    </message>
    <message>
        <source>repeats the entry</source>
        <translation>wiederholt den Eintrag</translation>
    </message>
    <message>
        <source>wrench</source>
        <translation>Schlüssel</translation>
    </message>
    <message>
        <source>port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>arrived</source>
        <translation>angekommen</translation>
    </message>
    <message>
        <source>entry</source>
        <translation>Eintrag</translation>
    </message>
    <message>
        <source>preset: %1</source>
        <translation>Vorgabe: %1</translation>
    </message>
    <message>
        <source>A gap</source>
        <translation>Eine Lücke</translation>
    </message>
    <message>
        <source>A repeated reading</source>
        <translation>Eine wiederholte Messung</translation>
    </message>
    <message>
        <source>A good result</source>
        <translation>Ein gutes Ergebnis</translation>
    </message>
    <message>
        <source>A result that is not good</source>
        <translation>Ein Ergebnis, das nicht in Ordnung ist</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>ResultsCommand</name>
    <message>
        <source>the list of results takes no argument &quot;%1&quot;</source>
        <translation>die Liste der Ergebnisse kennt kein Argument „%1“</translation>
    </message>
    <message>
        <source>--status takes ok or nok, not &quot;%1&quot;</source>
        <translation>--status nimmt ok oder nok, nicht „%1“</translation>
    </message>
    <message>
        <source>the file &quot;%1&quot; does not say how to write it</source>
        <translation>aus dem Namen der Datei „%1“ geht nicht hervor, wie sie zu schreiben ist</translation>
    </message>
    <message>
        <source>end its name with .csv or .jsonl</source>
        <translation>lassen Sie ihren Namen auf .csv oder .jsonl enden</translation>
    </message>
    <message>
        <source>--export and --watch do not go together</source>
        <translation>--export und --watch passen nicht zusammen</translation>
    </message>
    <message>
        <source>watch with --json, or export when the session is over</source>
        <translation>folgen Sie mit --json, oder exportieren Sie nach dem Ende der Sitzung</translation>
    </message>
    <message>
        <source>Lists, exports or follows the stored results.</source>
        <translation>Listet die gespeicherten Ergebnisse auf, exportiert sie oder folgt ihnen.</translation>
    </message>
    <message>
        <source>Only what arrived then or later: 2026-11-21 or 2026-11-21T08:30.</source>
        <translation>Nur, was dann oder später ankam: 2026-11-21 oder 2026-11-21T08:30.</translation>
    </message>
    <message>
        <source>Only what arrived before then; a date alone: up to its end.</source>
        <translation>Nur, was vorher ankam; ein Datum allein: bis zu seinem Ende.</translation>
    </message>
    <message>
        <source>Only results of this program.</source>
        <translation>Nur Ergebnisse dieses Programms.</translation>
    </message>
    <message>
        <source>Only good ones, or only the others.</source>
        <translation>Nur die guten, oder nur die anderen.</translation>
    </message>
    <message>
        <source>Only the last so many results.</source>
        <translation>Nur so viele der letzten Ergebnisse.</translation>
    </message>
    <message>
        <source>Writes them into a file, .csv or .jsonl.</source>
        <translation>Schreibt sie in eine Datei, .csv oder .jsonl.</translation>
    </message>
    <message>
        <source>Goes on with what a running session stores, until Ctrl-C.</source>
        <translation>Fährt mit dem fort, was eine laufende Sitzung speichert, bis Strg-C.</translation>
    </message>
    <message>
        <source>Nothing is stored yet: there is no %1.</source>
        <translation>Es ist noch nichts gespeichert: %1 gibt es nicht.</translation>
    </message>
    <message>
        <source>there is nothing to export</source>
        <translation>es gibt nichts zu exportieren</translation>
    </message>
    <message>
        <source>Interrupted: %1 is not written.</source>
        <translation>Unterbrochen: %1 wird nicht geschrieben.</translation>
    </message>
    <message>
        <source>--%1 takes a date or a date and a time, not &quot;%2&quot;</source>
        <translation>--%1 nimmt ein Datum oder ein Datum mit Uhrzeit, nicht „%2“</translation>
    </message>
    <message>
        <source>write 2026-11-21 or 2026-11-21T08:30:15; local time unless Z or +01:00 follows</source>
        <translation>schreiben Sie 2026-11-21 oder 2026-11-21T08:30:15; Ortszeit, wenn nicht Z oder +01:00 folgt</translation>
    </message>
</context>
<context>
    <name>ResultsExport</name>
    <message>
        <source>Export what is listed</source>
        <translation>Aufgelistetes exportieren</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>for spreadsheets (.csv)</source>
        <translation>für Tabellen (.csv)</translation>
    </message>
    <message>
        <source>for programs (.jsonl)</source>
        <translation>für Programme (.jsonl)</translation>
    </message>
    <message>
        <source>Writing … %1 %</source>
        <translation>Wird geschrieben … %1 %</translation>
    </message>
    <message>
        <source>Stopped; nothing was written.</source>
        <translation>Angehalten; nichts wurde geschrieben.</translation>
    </message>
    <message>
        <source>Written: %1</source>
        <translation>Geschrieben: %1</translation>
    </message>
    <message>
        <source>Replace the file</source>
        <translation>Datei ersetzen</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>ResultsFilters</name>
    <message>
        <source>all</source>
        <translation>alle</translation>
    </message>
    <message>
        <source>today</source>
        <translation>heute</translation>
    </message>
    <message>
        <source>yesterday</source>
        <translation>gestern</translation>
    </message>
    <message>
        <source>last 7 days</source>
        <translation>letzte 7 Tage</translation>
    </message>
    <message>
        <source>last 30 days</source>
        <translation>letzte 30 Tage</translation>
    </message>
    <message>
        <source>from … to …</source>
        <translation>von … bis …</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Wrench</source>
        <translation>Schlüssel</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>Verdict</source>
        <translation>Urteil</translation>
    </message>
    <message>
        <source>good</source>
        <translation>i.O.</translation>
    </message>
    <message>
        <source>not good</source>
        <translation>n.i.O.</translation>
    </message>
    <message>
        <source>Let all through</source>
        <translation>Alle durchlassen</translation>
    </message>
    <message>
        <source>Export …</source>
        <translation>Export …</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>2026-11-21 or 2026-11-21 08:30</source>
        <translation>2026-11-21 oder 2026-11-21 08:30</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Bis</translation>
    </message>
    <message>
        <source>That is no date, and no date and time; it is left out.</source>
        <translation>Das ist weder Datum noch Datum und Zeit; es wird ausgelassen.</translation>
    </message>
</context>
<context>
    <name>ResultsPage</name>
    <message>
        <source>time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>wrench</source>
        <translation>Schlüssel</translation>
    </message>
    <message>
        <source>program</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>torque</source>
        <translation>Drehmoment</translation>
    </message>
    <message>
        <source>direction</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <source>angle (°)</source>
        <translation>Winkel (°)</translation>
    </message>
    <message>
        <source>reading</source>
        <translation>Messung</translation>
    </message>
    <message>
        <source>status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>verdict</source>
        <translation>Urteil</translation>
    </message>
    <message>
        <source>Results</source>
        <translation>Ergebnisse</translation>
    </message>
    <message>
        <source>Let more through with the filters above.</source>
        <translation>Lassen Sie mit den Filtern oben mehr durch.</translation>
    </message>
    <message>
        <source>Each result of a session is stored in %1.</source>
        <translation>Jedes Ergebnis einer Sitzung wird in %1 gespeichert.</translation>
    </message>
    <message>
        <source>No stored result is like that.</source>
        <translation>Kein gespeichertes Ergebnis ist so.</translation>
    </message>
    <message>
        <source>Nothing is stored yet.</source>
        <translation>Noch ist nichts gespeichert.</translation>
    </message>
    <message>
        <source>The list is being made …</source>
        <translation>Die Liste entsteht …</translation>
    </message>
    <message>
        <source>%1 new</source>
        <translation>%1 neue</translation>
    </message>
</context>
<context>
    <name>ResultsReport</name>
    <message>
        <source>good</source>
        <translation>i.O.</translation>
    </message>
    <message>
        <source>NOT GOOD</source>
        <translation>n.i.O.</translation>
    </message>
    <message>
        <source>Results: %1, good: %2, not good: %3, gaps: %4, repeated: %5</source>
        <translation>Ergebnisse: %1, i.O.: %2, n.i.O.: %3, Lücken: %4, wiederholt: %5</translation>
    </message>
    <message>
        <source>%1; written to %2</source>
        <translation>%1; geschrieben nach %2</translation>
    </message>
    <message>
        <source>time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>wrench</source>
        <translation>Schlüssel</translation>
    </message>
    <message>
        <source>torque</source>
        <translation>Drehmoment</translation>
    </message>
    <message>
        <source>status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>direction</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <source>angle</source>
        <translation>Winkel</translation>
    </message>
    <message>
        <source>reading</source>
        <translation>Messung</translation>
    </message>
    <message>
        <source>program</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>repeated after a reconnection, stored once (entry %1)</source>
        <translation>nach einer Wiederverbindung wiederholt, einmal gespeichert (Eintrag %1)</translation>
    </message>
    <message>
        <source>gap: the count of readings fell back from %1 to %2; how many are missing cannot be told</source>
        <translation>Lücke: die Zählung der Messungen fiel von %1 auf %2 zurück; wie viele fehlen, lässt sich nicht sagen</translation>
    </message>
    <message>
        <source>gap: of the input, the chunks %1 to %2 were not heard; results may be missing</source>
        <translation>Lücke: die Stücke %1 bis %2 der Eingabe wurden nicht gehört; es können Ergebnisse fehlen</translation>
    </message>
    <message>
        <source>gap: reading %1 is missing</source>
        <translation>Lücke: Messung %1 fehlt</translation>
    </message>
    <message>
        <source>gap: %1 readings are missing, %2 to %3</source>
        <translation>Lücke: %1 Messungen fehlen, %2 bis %3</translation>
    </message>
</context>
<context>
    <name>ResultsStage</name>
    <message>
        <source>a tightening arrives as a result</source>
        <translation>eine Verschraubung kommt als Ergebnis an</translation>
    </message>
    <message>
        <source>DT:1, SC:TL:2 and RE:1 to the wrench, which reports its results from now on, and DT:0, which unlocks it; the lock is put back at the end</source>
        <translation>DT:1, SC:TL:2 und RE:1 an den Schlüssel, der ab jetzt seine Ergebnisse meldet, und DT:0, das ihn entsperrt; die Sperre wird am Ende zurückgestellt</translation>
    </message>
    <message>
        <source>not asked for: with --wait-result 60 you are asked to tighten once</source>
        <translation>nicht verlangt: Mit --wait-result 60 werden Sie um eine Verschraubung gebeten</translation>
    </message>
    <message>
        <source>the device plugin lacks the command &quot;%1&quot; or &quot;%2&quot;</source>
        <translation>dem Geräte-Plugin fehlt der Befehl „%1“ oder „%2“</translation>
    </message>
    <message>
        <source>name another folder with --plugins</source>
        <translation>nennen Sie mit --plugins einen anderen Ordner</translation>
    </message>
    <message>
        <source>the wrench does not take its configuration</source>
        <translation>der Schlüssel nimmt seine Einstellung nicht an</translation>
    </message>
    <message>
        <source>it did not answer</source>
        <translation>er hat nicht geantwortet</translation>
    </message>
    <message>
        <source>the last that was said is &quot;%1&quot;</source>
        <translation>zuletzt wurde „%1“ gesagt</translation>
    </message>
    <message>
        <source>bring the wrench nearer and try again</source>
        <translation>bringen Sie den Schlüssel näher und versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>the wrench is locked, and a locked wrench gives no result</source>
        <translation>der Schlüssel ist gesperrt, und ein gesperrter Schlüssel gibt kein Ergebnis</translation>
    </message>
    <message>
        <source>it was unlocked with DT:0 and says that it is locked all the same</source>
        <translation>er wurde mit DT:0 entsperrt und meldet sich trotzdem gesperrt</translation>
    </message>
    <message>
        <source>see who else locks it: another program, or a key on the wrench</source>
        <translation>sehen Sie nach, wer ihn sonst sperrt: ein anderes Programm oder eine Taste am Schlüssel</translation>
    </message>
    <message>
        <source>the wrench does not tell its lock any more</source>
        <translation>der Schlüssel meldet seine Sperre nicht mehr</translation>
    </message>
    <message>
        <source>the line said &quot;%1&quot;</source>
        <translation>auf der Leitung kam „%1“</translation>
    </message>
    <message>
        <source>Tighten once now; a result is waited for %1 s.</source>
        <translation>Verschrauben Sie jetzt einmal; auf ein Ergebnis wird %1 s gewartet.</translation>
    </message>
    <message>
        <source>a result has come: torque %1, reading %2</source>
        <translation>ein Ergebnis ist angekommen: Drehmoment %1, Messung %2</translation>
    </message>
    <message>
        <source>no result has come within %1 s</source>
        <translation>innerhalb von %1 s ist kein Ergebnis angekommen</translation>
    </message>
    <message>
        <source>the wrench is unlocked and answers, and has told of no tightening</source>
        <translation>der Schlüssel ist entsperrt und antwortet, hat aber keine Verschraubung gemeldet</translation>
    </message>
    <message>
        <source>tighten once while it is waited for; give more time with --wait-result</source>
        <translation>verschrauben Sie einmal, solange gewartet wird; geben Sie mit --wait-result mehr Zeit</translation>
    </message>
</context>
<context>
    <name>ResultsTotals</name>
    <message>
        <source>%1 results, %2 good, %3 not good, %4 gaps, %5 repeated</source>
        <translation>%1 Ergebnisse, %2 i.O., %3 n.i.O., %4 Lücken, %5 wiederholt</translation>
    </message>
    <message>
        <source>Results: %1</source>
        <translation>Ergebnisse: %1</translation>
    </message>
    <message>
        <source>good: %1</source>
        <translation>i.O.: %1</translation>
    </message>
    <message>
        <source>not good: %1</source>
        <translation>n.i.O.: %1</translation>
    </message>
    <message>
        <source>gaps: %1</source>
        <translation>Lücken: %1</translation>
    </message>
    <message>
        <source>repeated: %1</source>
        <translation>wiederholt: %1</translation>
    </message>
</context>
<context>
    <name>RunCard</name>
    <message>
        <source>%1 good</source>
        <translation>%1 i.O.</translation>
    </message>
    <message>
        <source>%1 not good</source>
        <translation>%1 n.i.O.</translation>
    </message>
    <message>
        <source>target %1</source>
        <translation>Sollwert %1</translation>
    </message>
    <message>
        <source>Run chart of the last %1 results</source>
        <translation>Verlauf der letzten %1 Ergebnisse</translation>
    </message>
    <message>
        <source>The last results are drawn here, as they come.</source>
        <translation>Hier werden die letzten Ergebnisse gezeichnet, wie sie kommen.</translation>
    </message>
</context>
<context>
    <name>RunCommand</name>
    <message>
        <source>no command of a plugin is named</source>
        <translation>es ist kein Befehl eines Plugins genannt</translation>
    </message>
    <message>
        <source>&quot;app_workplace commands&quot; lists them</source>
        <translation>„app_workplace commands“ listet sie auf</translation>
    </message>
    <message>
        <source>which wrench is to be connected is not said</source>
        <translation>welcher Schlüssel verbunden werden soll, ist nicht gesagt</translation>
    </message>
    <message>
        <source>give its serial number with --serial-id</source>
        <translation>nennen Sie mit --serial-id seine Seriennummer</translation>
    </message>
    <message>
        <source>[driver/]COMMAND [name=value …]</source>
        <translation>[driver/]BEFEHL [Name=Wert …]</translation>
    </message>
    <message>
        <source>Runs one command of a plugin; &quot;app_workplace commands COMMAND&quot; tells its parameters.</source>
        <translation>Führt einen Befehl eines Plugins aus; „app_workplace commands BEFEHL“ nennt seine Parameter.</translation>
    </message>
    <message>
        <source>First connects to the wrench and gets it ready, as a session does.</source>
        <translation>Verbindet zuerst den Schlüssel und macht ihn bereit, wie eine Sitzung.</translation>
    </message>
    <message>
        <source>Ends the run after so long (30 when not said; none for a command that runs until stopped).</source>
        <translation>Beendet den Lauf nach dieser Zeit (30, wenn nicht gesagt; keine Grenze für einen Befehl, der läuft, bis er beendet wird).</translation>
    </message>
    <message>
        <source>&quot;%1/&quot; names nobody that runs commands</source>
        <translation>„%1/“ bezeichnet niemanden, der Befehle ausführt</translation>
    </message>
    <message>
        <source>write &quot;driver/%1&quot; or only &quot;%1&quot;</source>
        <translation>schreiben Sie „driver/%1“ oder nur „%1“</translation>
    </message>
    <message>
        <source>no loaded plugin has the command &quot;%1&quot;</source>
        <translation>kein geladenes Plugin hat den Befehl „%1“</translation>
    </message>
    <message>
        <source>&quot;app_workplace commands&quot; lists what there is</source>
        <translation>„app_workplace commands“ zeigt, was es gibt</translation>
    </message>
    <message>
        <source>&quot;app_workplace commands %1&quot; tells more</source>
        <translation>„app_workplace commands %1“ sagt mehr</translation>
    </message>
    <message>
        <source>no loaded plugin can connect to a wrench</source>
        <translation>kein geladenes Plugin kann einen Schlüssel verbinden</translation>
    </message>
    <message>
        <source>name the folder of the plugins with --plugins</source>
        <translation>nennen Sie mit --plugins den Ordner der Plugins</translation>
    </message>
    <message>
        <source>the command &quot;%1&quot; did not succeed</source>
        <translation>der Befehl „%1“ hatte keinen Erfolg</translation>
    </message>
    <message>
        <source>it was ended by the time limit</source>
        <translation>die Zeitgrenze hat ihn beendet</translation>
    </message>
    <message>
        <source>give more time with --limit, and check that the wrench is connected</source>
        <translation>geben Sie mit --limit mehr Zeit, und prüfen Sie, ob der Schlüssel verbunden ist</translation>
    </message>
    <message>
        <source>it was interrupted</source>
        <translation>er wurde unterbrochen</translation>
    </message>
    <message>
        <source>the plugin refused it</source>
        <translation>das Plugin hat ihn abgelehnt</translation>
    </message>
    <message>
        <source>the device said no or did not answer</source>
        <translation>das Gerät hat abgelehnt oder nicht geantwortet</translation>
    </message>
    <message>
        <source>%1 tightening results came with the link, and are not stored; a session stores what comes</source>
        <translation>%1 Verschraubungsergebnisse sind mit der Verbindung gekommen und nicht gespeichert; eine Sitzung speichert, was kommt</translation>
    </message>
</context>
<context>
    <name>ScanCommand</name>
    <message>
        <source>a scan takes no argument &quot;%1&quot;</source>
        <translation>eine Suche kennt kein Argument „%1“</translation>
    </message>
    <message>
        <source>see app_workplace scan --help</source>
        <translation>siehe app_workplace scan --help</translation>
    </message>
    <message>
        <source>Lists the wrenches in range, the strongest signal first.</source>
        <translation>Listet die Schlüssel in Reichweite auf, den mit dem stärksten Signal zuerst.</translation>
    </message>
    <message>
        <source>Ends after so long (5 when not said); 0: goes on until Ctrl-C.</source>
        <translation>Endet nach dieser Zeit (5, wenn nicht gesagt); 0: läuft bis Strg-C.</translation>
    </message>
    <message>
        <source>no loaded plugin can scan</source>
        <translation>kein geladenes Plugin kann suchen</translation>
    </message>
    <message>
        <source>name the folder of the plugins with --plugins</source>
        <translation>nennen Sie mit --plugins den Ordner der Plugins</translation>
    </message>
    <message>
        <source>searching …</source>
        <translation>sucht …</translation>
    </message>
    <message>
        <source>serial number</source>
        <translation>Seriennummer</translation>
    </message>
    <message>
        <source>address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>signal (dBm)</source>
        <translation>Signal (dBm)</translation>
    </message>
</context>
<context>
    <name>Session</name>
    <message>
        <source>the device plugin has no command &quot;%1&quot;</source>
        <translation>das Geräte-Plugin hat keinen Befehl „%1“</translation>
    </message>
    <message>
        <source>check the folder of the plugins with --plugins</source>
        <translation>prüfen Sie mit --plugins den Ordner der Plugins</translation>
    </message>
    <message>
        <source>the listener has ended</source>
        <translation>das Mithören hat geendet</translation>
    </message>
    <message>
        <source>the driver did not say why</source>
        <translation>der Treiber hat keinen Grund genannt</translation>
    </message>
</context>
<context>
    <name>SessionCommand</name>
    <message>
        <source>Ends when the link to the wrench is lost, instead of restoring it.</source>
        <translation>Endet, wenn die Verbindung zum Schlüssel verloren geht, statt sie wiederherzustellen.</translation>
    </message>
    <message>
        <source>Ends when the link was away so long (%1 when not said, or 0).</source>
        <translation>Endet, wenn die Verbindung so lange fehlte (%1, wenn nicht gesagt oder 0).</translation>
    </message>
    <message>
        <source>--%1 and --%2 do not go together</source>
        <translation>--%1 und --%2 passen nicht zusammen</translation>
    </message>
    <message>
        <source>which wrench is not said</source>
        <translation>welcher Schlüssel, ist nicht gesagt</translation>
    </message>
    <message>
        <source>give its serial number with --serial-id; &quot;app_workplace scan&quot; lists what is in range</source>
        <translation>nennen Sie mit --serial-id seine Seriennummer; „app_workplace scan“ listet auf, was in Reichweite ist</translation>
    </message>
    <message>
        <source>a session takes no argument &quot;%1&quot;</source>
        <translation>eine Sitzung kennt kein Argument „%1“</translation>
    </message>
    <message>
        <source>see app_workplace session --help</source>
        <translation>siehe app_workplace session --help</translation>
    </message>
    <message>
        <source>Connects to a wrench and takes its tightening results.</source>
        <translation>Verbindet einen Schlüssel und nimmt seine Schraubergebnisse entgegen.</translation>
    </message>
    <message>
        <source>Selects this program; without it the selection is left alone.</source>
        <translation>Wählt dieses Programm aus; sonst bleibt die Auswahl, wie sie ist.</translation>
    </message>
    <message>
        <source>Ends after so many results.</source>
        <translation>Endet nach so vielen Ergebnissen.</translation>
    </message>
    <message>
        <source>Ends after listening so long.</source>
        <translation>Endet nach dieser Zeit des Empfangens.</translation>
    </message>
    <message>
        <source>Time limit of each step, instead of its own.</source>
        <translation>Zeitgrenze für jeden Schritt, statt seiner eigenen.</translation>
    </message>
    <message>
        <source>no loaded plugin has the command &quot;%1&quot;</source>
        <translation>kein geladenes Plugin hat den Befehl „%1“</translation>
    </message>
    <message>
        <source>name the folder of the plugins with --plugins</source>
        <translation>nennen Sie mit --plugins den Ordner der Plugins</translation>
    </message>
</context>
<context>
    <name>SessionService</name>
    <message>
        <source>listening; results so far: %1</source>
        <translation>empfängt; Ergebnisse bisher: %1</translation>
    </message>
    <message>
        <source>%1 …</source>
        <translation>%1 …</translation>
    </message>
</context>
<context>
    <name>SessionStep</name>
    <message>
        <source>the line could not be opened</source>
        <translation>die Leitung ließ sich nicht öffnen</translation>
    </message>
    <message>
        <source>check the port and the cable; &quot;app_workplace ports&quot; lists the ports</source>
        <translation>prüfen Sie Anschluss und Kabel; „app_workplace ports“ listet die Anschlüsse auf</translation>
    </message>
    <message>
        <source>the wrench could not be connected</source>
        <translation>der Schlüssel ließ sich nicht verbinden</translation>
    </message>
    <message>
        <source>switch the wrench on, bring it near and check the serial number; &quot;app_workplace scan&quot; lists what is in range</source>
        <translation>schalten Sie den Schlüssel ein, bringen Sie ihn näher und prüfen Sie die Seriennummer; „app_workplace scan“ listet auf, was in Reichweite ist</translation>
    </message>
    <message>
        <source>the wrench could not be configured</source>
        <translation>der Schlüssel ließ sich nicht einrichten</translation>
    </message>
    <message>
        <source>bring the wrench nearer and try again</source>
        <translation>bringen Sie den Schlüssel näher und versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>the wrench&apos;s programs could not be read</source>
        <translation>die Programme des Schlüssels ließen sich nicht lesen</translation>
    </message>
    <message>
        <source>finish the tightening that is going on, bring the wrench nearer and try again</source>
        <translation>beenden Sie die laufende Verschraubung, bringen Sie den Schlüssel näher und versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>the program could not be selected</source>
        <translation>das Programm ließ sich nicht auswählen</translation>
    </message>
    <message>
        <source>choose one of the listed programs with --program</source>
        <translation>wählen Sie mit --program eines der aufgelisteten Programme</translation>
    </message>
    <message>
        <source>the wrench could not be unlocked</source>
        <translation>der Schlüssel ließ sich nicht entsperren</translation>
    </message>
    <message>
        <source>the results could not be listened to</source>
        <translation>die Ergebnisse ließen sich nicht empfangen</translation>
    </message>
    <message>
        <source>try again</source>
        <translation>versuchen Sie es noch einmal</translation>
    </message>
</context>
<context>
    <name>SessionTextReport</name>
    <message>
        <source>%1 (%2 dBm)</source>
        <translation>%1 (%2 dBm)</translation>
    </message>
    <message>
        <source>which one has the link is not known</source>
        <translation>welcher die Verbindung hat, ist nicht bekannt</translation>
    </message>
    <message>
        <source>%1 was taken</source>
        <translation>%1 wurde genommen</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>%1 wrenches answer to the serial number %2: %3; %4: switch the others off, or give each a number of its own</source>
        <translation>%1 Schlüssel melden sich mit der Seriennummer %2: %3; %4: Schalten Sie die anderen aus, oder geben Sie jedem eine eigene Nummer</translation>
    </message>
    <message>
        <source>the line is open again</source>
        <translation>die Leitung ist wieder offen</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>attempt %1 in %2 s; %3</source>
        <translation>Versuch %1 in %2 s; %3</translation>
    </message>
    <message>
        <source>attempt %1 …</source>
        <translation>Versuch %1 …</translation>
    </message>
    <message>
        <source>restored after %1 (attempt %2)</source>
        <translation>nach %1 wiederhergestellt (Versuch %2)</translation>
    </message>
    <message>
        <source>torque</source>
        <translation>Drehmoment</translation>
    </message>
    <message>
        <source>status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>direction</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <source>angle</source>
        <translation>Winkel</translation>
    </message>
    <message>
        <source>reading</source>
        <translation>Messung</translation>
    </message>
    <message>
        <source>program</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>Session with the wrench %1 on %2 (simulated)</source>
        <translation>Sitzung mit dem Schlüssel %1 an %2 (simuliert)</translation>
    </message>
    <message>
        <source>Session with the wrench %1 on %2</source>
        <translation>Sitzung mit dem Schlüssel %1 an %2</translation>
    </message>
    <message>
        <source>searching …</source>
        <translation>sucht …</translation>
    </message>
    <message>
        <source>reading …</source>
        <translation>liest …</translation>
    </message>
    <message>
        <source>going to the program …</source>
        <translation>geht zum Programm …</translation>
    </message>
    <message>
        <source>waiting for results; Ctrl-C ends the session</source>
        <translation>wartet auf Ergebnisse; Strg-C beendet die Sitzung</translation>
    </message>
    <message>
        <source>the line is open</source>
        <translation>die Leitung ist offen</translation>
    </message>
    <message>
        <source>the wrench answers</source>
        <translation>der Schlüssel antwortet</translation>
    </message>
    <message>
        <source>locked, results switched on</source>
        <translation>gesperrt, Ergebnisse eingeschaltet</translation>
    </message>
    <message>
        <source>ready to tighten</source>
        <translation>bereit zum Verschrauben</translation>
    </message>
    <message>
        <source>heard %1 (%2, %3 dBm)</source>
        <translation>gehört: %1 (%2, %3 dBm)</translation>
    </message>
    <message>
        <source>1 program</source>
        <translation>1 Programm</translation>
    </message>
    <message>
        <source>%1 programs</source>
        <translation>%1 Programme</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>target torque</source>
        <translation>Solldrehmoment</translation>
    </message>
    <message>
        <source>program %1</source>
        <translation>Programm %1</translation>
    </message>
    <message>
        <source>good</source>
        <translation>i.O.</translation>
    </message>
    <message>
        <source>NOT GOOD</source>
        <translation>n.i.O.</translation>
    </message>
    <message>
        <source>No result</source>
        <translation>Kein Ergebnis</translation>
    </message>
    <message>
        <source>1 result: %1 good, %2 not good</source>
        <translation>1 Ergebnis: %1 i.O., %2 n.i.O.</translation>
    </message>
    <message>
        <source>%1 results: %2 good, %3 not good</source>
        <translation>%1 Ergebnisse: %2 i.O., %3 n.i.O.</translation>
    </message>
    <message>
        <source>%1; %2</source>
        <translation>%1; %2</translation>
    </message>
    <message>
        <source>%1; program %2</source>
        <translation>%1; Programm %2</translation>
    </message>
    <message>
        <source>%1; program %2 (the first one listed; none was selected)</source>
        <translation>%1; Programm %2 (das erste der Liste; keines wurde ausgewählt)</translation>
    </message>
    <message>
        <source>the dongle holds a link from before and does not say to which wrench: when it may be another one than %1, unplug the dongle, plug it in again and start anew</source>
        <translation>der Funkadapter hält eine Verbindung von vorher und sagt nicht, zu welchem Schlüssel: wenn es ein anderer als %1 sein kann, ziehen Sie den Funkadapter ab, stecken Sie ihn wieder an und beginnen Sie neu</translation>
    </message>
</context>
<context>
    <name>SetUp</name>
    <message>
        <source>it refused</source>
        <translation>er hat abgelehnt</translation>
    </message>
    <message>
        <source>it named none</source>
        <translation>er hat keine genannt</translation>
    </message>
    <message>
        <source>the wrench has the programs 1 to %1, and %2 was asked for</source>
        <translation>der Schlüssel hat die Programme 1 bis %1, verlangt war %2</translation>
    </message>
    <message>
        <source>the frame could not be written</source>
        <translation>das Telegramm ließ sich nicht schreiben</translation>
    </message>
    <message>
        <source>the driver does not keep the link alive</source>
        <translation>der Treiber hält die Verbindung nicht aufrecht</translation>
    </message>
    <message>
        <source>check the folder of the plugins with --plugins</source>
        <translation>prüfen Sie mit --plugins den Ordner der Plugins</translation>
    </message>
</context>
<context>
    <name>Settings</name>
    <message>
        <source>The serial number of the wrench.</source>
        <translation>Die Seriennummer des Schlüssels.</translation>
    </message>
    <message>
        <source>The folder of the plugins.</source>
        <translation>Der Ordner der Plugins.</translation>
    </message>
    <message>
        <source>The folder for what is kept of a device.</source>
        <translation>Der Ordner für das, was von einem Gerät aufbewahrt wird.</translation>
    </message>
    <message>
        <source>Writes down every byte on the line; - for standard error.</source>
        <translation>Schreibt jedes Byte auf der Leitung mit; - für die Standardfehlerausgabe.</translation>
    </message>
    <message>
        <source>The language of the texts; that of the environment when not said.</source>
        <translation>Die Sprache der Texte; wenn nicht gesagt, die der Umgebung.</translation>
    </message>
    <message>
        <source>One JSON object a line, messages on standard error.</source>
        <translation>Ein JSON-Objekt je Zeile, Meldungen auf der Standardfehlerausgabe.</translation>
    </message>
    <message>
        <source>Results and errors only.</source>
        <translation>Nur Ergebnisse und Fehler.</translation>
    </message>
    <message>
        <source>Also shows what is in use, all log lines, and how long it takes.</source>
        <translation>Zeigt auch, was verwendet wird, alle Protokollzeilen und die Dauer.</translation>
    </message>
    <message>
        <source>The serial port, or &quot;simulated&quot; (the default) for a simulator of its own, which plays the scenario FILE when it is named.</source>
        <translation>Der serielle Anschluss, oder „simulated“ (die Vorgabe) für einen eigenen Simulator, der das Szenario FILE spielt, wenn es genannt ist.</translation>
    </message>
</context>
<context>
    <name>SidePanel</name>
    <message>
        <source>light</source>
        <translation>hell</translation>
    </message>
    <message>
        <source>dark</source>
        <translation>dunkel</translation>
    </message>
    <message>
        <source>high contrast</source>
        <translation>hoher Kontrast</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Devices (%1)</source>
        <translation>Geräte (%1)</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Darstellung</translation>
    </message>
</context>
<context>
    <name>SimulatedWrench</name>
    <message>
        <source>the scenario %1 is not used</source>
        <translation>das Szenario %1 wird nicht verwendet</translation>
    </message>
    <message>
        <source>mend the file, or name another one with --port simulated:FILE</source>
        <translation>die Datei berichtigen oder mit --port simulated:FILE eine andere nennen</translation>
    </message>
</context>
<context>
    <name>SimulatorProcess</name>
    <message>
        <source>%1 does not start: %2</source>
        <translation>%1 startet nicht: %2</translation>
    </message>
    <message>
        <source>its process crashed or was killed</source>
        <translation>sein Prozess stürzte ab oder wurde beendet</translation>
    </message>
    <message>
        <source>its process ended with the exit status %1</source>
        <translation>sein Prozess endete mit dem Endestatus %1</translation>
    </message>
    <message>
        <source>%1 and the words: %2</source>
        <translation>%1 und den Worten: %2</translation>
    </message>
    <message>
        <source>%1 has not said within %2 s that it is ready</source>
        <translation>%1 hat sich nicht innerhalb von %2 s bereit gemeldet</translation>
    </message>
</context>
<context>
    <name>StageRow</name>
    <message>
        <source>%1 (%2 s)</source>
        <translation>%1 (%2 s)</translation>
    </message>
    <message>
        <source>Sends: %1</source>
        <translation>Sendet: %1</translation>
    </message>
    <message>
        <source>What to do: %1</source>
        <translation>Was zu tun ist: %1</translation>
    </message>
</context>
<context>
    <name>Step</name>
    <message>
        <source>open</source>
        <translation>öffnen</translation>
    </message>
    <message>
        <source>connect</source>
        <translation>verbinden</translation>
    </message>
    <message>
        <source>configure</source>
        <translation>einrichten</translation>
    </message>
    <message>
        <source>programs</source>
        <translation>Programme</translation>
    </message>
    <message>
        <source>select</source>
        <translation>auswählen</translation>
    </message>
    <message>
        <source>unlock</source>
        <translation>entsperren</translation>
    </message>
    <message>
        <source>listen</source>
        <translation>empfangen</translation>
    </message>
    <message>
        <source>link</source>
        <translation>Verbindung</translation>
    </message>
    <message>
        <source>session</source>
        <translation>Sitzung</translation>
    </message>
    <message>
        <source>scan</source>
        <translation>Suche</translation>
    </message>
    <message>
        <source>run</source>
        <translation>Ausführung</translation>
    </message>
    <message>
        <source>commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>command line</source>
        <translation>Befehlszeile</translation>
    </message>
    <message>
        <source>configuration</source>
        <translation>Konfiguration</translation>
    </message>
    <message>
        <source>history</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>export</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>plugins</source>
        <translation>Plugins</translation>
    </message>
    <message>
        <source>port</source>
        <translation>Anschluss</translation>
    </message>
    <message>
        <source>line</source>
        <translation>Leitung</translation>
    </message>
    <message>
        <source>dongle</source>
        <translation>Adapter</translation>
    </message>
    <message>
        <source>range</source>
        <translation>Reichweite</translation>
    </message>
    <message>
        <source>wrench</source>
        <translation>Schlüssel</translation>
    </message>
    <message>
        <source>results</source>
        <translation>Ergebnisse</translation>
    </message>
    <message>
        <source>lock</source>
        <translation>sperren</translation>
    </message>
</context>
<context>
    <name>Supervisor</name>
    <message>
        <source>the dongle cannot reach the wrench %1 (&quot;%2&quot;): bring it near and check that it is switched on</source>
        <translation>der Funkadapter erreicht den Schlüssel %1 nicht („%2“): Bringen Sie ihn näher, und prüfen Sie, ob er eingeschaltet ist</translation>
    </message>
    <message>
        <source>the dongle has lost its link to the wrench %1 (&quot;%2&quot;)</source>
        <translation>der Funkadapter hat die Funkstrecke zum Schlüssel %1 verloren („%2“)</translation>
    </message>
    <message>
        <source>the link to the wrench %1 was not restored within %2 s</source>
        <translation>die Verbindung zum Schlüssel %1 wurde nicht innerhalb von %2 s wiederhergestellt</translation>
    </message>
    <message>
        <source>the link to the wrench %1 is lost</source>
        <translation>die Verbindung zum Schlüssel %1 ist verloren</translation>
    </message>
    <message>
        <source>mend that and start again; without --no-reconnect a session restores its link itself</source>
        <translation>beheben Sie das und starten Sie neu; ohne --no-reconnect stellt eine Sitzung ihre Verbindung selbst wieder her</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>TraceList</name>
    <message>
        <source>seconds</source>
        <translation>Sekunden</translation>
    </message>
    <message>
        <source>&gt; to the device, &lt; from it, ! a remark</source>
        <translation>&gt; zum Gerät, &lt; von ihm, ! eine Anmerkung</translation>
    </message>
    <message>
        <source>Entries of the trace, %1</source>
        <translation>Einträge des Mitschnitts, %1</translation>
    </message>
    <message>
        <source>sent</source>
        <translation>gesendet</translation>
    </message>
    <message>
        <source>arrived</source>
        <translation>empfangen</translation>
    </message>
    <message>
        <source>remark</source>
        <translation>Anmerkung</translation>
    </message>
    <message>
        <source>No entries</source>
        <translation>Keine Einträge</translation>
    </message>
    <message>
        <source>Newest</source>
        <translation>Neueste</translation>
    </message>
</context>
<context>
    <name>TracePage</name>
    <message>
        <source>Go on: show what has come meanwhile</source>
        <translation>Weiter: zeigen, was inzwischen kam</translation>
    </message>
    <message>
        <source>Pause: leave the rows as they are</source>
        <translation>Pause: die Zeilen lassen, wie sie sind</translation>
    </message>
    <message>
        <source>Go on</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Clear: forget what is kept</source>
        <translation>Leeren: vergessen, was aufbewahrt ist</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Only with this text</source>
        <translation>Nur mit diesem Text</translation>
    </message>
    <message>
        <source>What there is does not pass the filter.</source>
        <translation>Was da ist, lässt der Filter nicht durch.</translation>
    </message>
    <message>
        <source>It comes as soon as something is said.</source>
        <translation>Es erscheint, sobald etwas gesagt wird.</translation>
    </message>
    <message>
        <source>The line is not in use: scan or connect, and it is heard from then on.</source>
        <translation>Die Leitung ist nicht in Gebrauch: suchen oder verbinden, von da an wird mitgehört.</translation>
    </message>
    <message>
        <source>%1 of %2 entries</source>
        <translation>%1 von %2 Einträgen</translation>
    </message>
    <message>
        <source>%1 were too many and are gone</source>
        <translation>%1 waren zu viel und sind fort</translation>
    </message>
    <message>
        <source>Saved: %1</source>
        <translation>Gespeichert: %1</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>named by the time</source>
        <translation>nach der Zeit benannt</translation>
    </message>
    <message>
        <source>Save what is kept as a trace that can be played back</source>
        <translation>Speichern, was aufbewahrt ist, als Mitschnitt, der sich abspielen lässt</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>%1 of %2 entries, %3 wait</source>
        <translation>%1 von %2 Einträgen, %3 warten</translation>
    </message>
</context>
<context>
    <name>TraceTable</name>
    <message>
        <source>there is no trace to save</source>
        <translation>es gibt keinen Mitschnitt zu speichern</translation>
    </message>
    <message>
        <source>nothing was heard of the line yet</source>
        <translation>von der Leitung wurde noch nichts gehört</translation>
    </message>
    <message>
        <source>the trace is not saved</source>
        <translation>der Mitschnitt ist nicht gespeichert</translation>
    </message>
    <message>
        <source>the file has no name</source>
        <translation>die Datei hat keinen Namen</translation>
    </message>
    <message>
        <source>give it one</source>
        <translation>ihr einen geben</translation>
    </message>
    <message>
        <source>there is a file %1 already</source>
        <translation>es gibt schon eine Datei %1</translation>
    </message>
    <message>
        <source>give it another name</source>
        <translation>ihr einen anderen Namen geben</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>name a file in a folder that you may write to</source>
        <translation>eine Datei in einem Ordner nennen, in den Sie schreiben dürfen</translation>
    </message>
    <message>
        <source>make room, or name another folder</source>
        <translation>Platz schaffen oder einen anderen Ordner nennen</translation>
    </message>
</context>
<context>
    <name>TraceToggle</name>
    <message>
        <source>Show what was sent</source>
        <translation>Zeigen, was gesendet wurde</translation>
    </message>
    <message>
        <source>Show what has arrived</source>
        <translation>Zeigen, was empfangen wurde</translation>
    </message>
    <message>
        <source>Show remarks</source>
        <translation>Anmerkungen zeigen</translation>
    </message>
    <message>
        <source>&gt; sent</source>
        <translation>&gt; gesendet</translation>
    </message>
    <message>
        <source>&lt; arrived</source>
        <translation>&lt; empfangen</translation>
    </message>
    <message>
        <source>! remarks</source>
        <translation>! Anmerkungen</translation>
    </message>
</context>
<context>
    <name>UiBusy</name>
    <message>
        <source>Stop: %1</source>
        <translation>Anhalten: %1</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
</context>
<context>
    <name>UiProblem</name>
    <message>
        <source>Close this message</source>
        <translation>Diese Meldung schließen</translation>
    </message>
</context>
<context>
    <name>UiVerdict</name>
    <message>
        <source>good</source>
        <translation>i.O.</translation>
    </message>
    <message>
        <source>not good</source>
        <translation>n.i.O.</translation>
    </message>
</context>
<context>
    <name>WindowDisplay</name>
    <message>
        <source>no window can be shown: there is no display</source>
        <translation>es kann kein Fenster gezeigt werden: Es gibt keinen Bildschirm</translation>
    </message>
    <message>
        <source>neither DISPLAY nor WAYLAND_DISPLAY is set</source>
        <translation>weder DISPLAY noch WAYLAND_DISPLAY ist gesetzt</translation>
    </message>
    <message>
        <source>start it from a desktop, or with ssh -X; --screenshot needs no display</source>
        <translation>starten Sie es von einer Arbeitsfläche aus oder mit ssh -X; --screenshot braucht keinen Bildschirm</translation>
    </message>
</context>
<context>
    <name>Workplace</name>
    <message>
        <source>there is no driver plugin</source>
        <translation>es ist kein Treiber-Plugin da</translation>
    </message>
    <message>
        <source>there is no device plugin</source>
        <translation>es ist kein Geräte-Plugin da</translation>
    </message>
    <message>
        <source>none could be loaded from %1</source>
        <translation>aus %1 ließ sich keines laden</translation>
    </message>
    <message>
        <source>name the folder of the plugins with --plugins</source>
        <translation>nennen Sie mit --plugins den Ordner der Plugins</translation>
    </message>
    <message>
        <source>the simulated wrench is not there</source>
        <translation>der simulierte Schlüssel ist nicht da</translation>
    </message>
    <message>
        <source>build or install wrench_simulator beside this program, or name a port with --port</source>
        <translation>bauen oder installieren Sie wrench_simulator neben diesem Programm, oder nennen Sie mit --port einen Anschluss</translation>
    </message>
    <message>
        <source>the simulated wrench has gone</source>
        <translation>der simulierte Schlüssel ist verschwunden</translation>
    </message>
    <message>
        <source>start again</source>
        <translation>starten Sie neu</translation>
    </message>
    <message>
        <source>the device&apos;s stored state %1 is not used</source>
        <translation>der gespeicherte Zustand %1 des Geräts wird nicht verwendet</translation>
    </message>
    <message>
        <source>move it away, or name another folder with --data</source>
        <translation>verschieben Sie ihn, oder nennen Sie mit --data einen anderen Ordner</translation>
    </message>
    <message>
        <source>a plugin makes no instance for this workplace</source>
        <translation>ein Plugin stellt für diesen Arbeitsplatz keine Instanz bereit</translation>
    </message>
    <message>
        <source>name another folder with --plugins</source>
        <translation>nennen Sie mit --plugins einen anderen Ordner</translation>
    </message>
    <message>
        <source>the device&apos;s state cannot be stored in %1: %2; name another folder with --data</source>
        <translation>der Zustand des Geräts lässt sich nicht in %1 speichern: %2; nennen Sie mit --data einen anderen Ordner</translation>
    </message>
    <message>
        <source>the scenario %1 is not used</source>
        <translation>das Szenario %1 wird nicht verwendet</translation>
    </message>
    <message>
        <source>mend the file, or name another one with --port simulated:FILE</source>
        <translation>die Datei berichtigen oder mit --port simulated:FILE eine andere nennen</translation>
    </message>
    <message>
        <source>the simulated wrench cannot have the serial number &quot;%1&quot;</source>
        <translation>der simulierte Schlüssel kann die Seriennummer „%1“ nicht haben</translation>
    </message>
    <message>
        <source>name another one with --serial-id</source>
        <translation>nennen Sie mit --serial-id eine andere</translation>
    </message>
</context>
<context>
    <name>WorkplaceCommand</name>
    <message>
        <source>plugins from %1: %2</source>
        <translation>Plugins aus %1: %2</translation>
    </message>
</context>
<context>
    <name>WrenchLock</name>
    <message>
        <source>it answered &quot;%1&quot; to &quot;%2&quot;</source>
        <translation>er antwortete „%1“ auf „%2“</translation>
    </message>
    <message>
        <source>it did not answer to &quot;%1&quot;</source>
        <translation>er hat auf „%1“ nicht geantwortet</translation>
    </message>
</context>
<context>
    <name>WrenchOrders</name>
    <message>
        <source>try again</source>
        <translation>versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>check the folder of the plugins with --plugins</source>
        <translation>prüfen Sie mit --plugins den Ordner der Plugins</translation>
    </message>
    <message>
        <source>the device plugin does not know it</source>
        <translation>das Geräte-Plugin kennt es nicht</translation>
    </message>
    <message>
        <source>wait until the link is restored, and try again</source>
        <translation>warten Sie, bis die Verbindung wiederhergestellt ist, und versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>the wrench has the programs 1 to %1, and %2 was asked for</source>
        <translation>der Schlüssel hat die Programme 1 bis %1, verlangt war %2</translation>
    </message>
    <message>
        <source>choose one of the listed programs</source>
        <translation>wählen Sie eines der aufgeführten Programme</translation>
    </message>
    <message>
        <source>the session does not listen to the wrench</source>
        <translation>die Sitzung hört dem Schlüssel nicht zu</translation>
    </message>
    <message>
        <source>wait until it does</source>
        <translation>warten Sie, bis sie es tut</translation>
    </message>
    <message>
        <source>the link to the wrench is being restored</source>
        <translation>die Verbindung zum Schlüssel wird wiederhergestellt</translation>
    </message>
    <message>
        <source>wait until it is, and try again</source>
        <translation>warten Sie, bis sie es ist, und versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>another order is being carried out</source>
        <translation>ein anderer Auftrag wird gerade ausgeführt</translation>
    </message>
    <message>
        <source>wait until it is done</source>
        <translation>warten Sie, bis er erledigt ist</translation>
    </message>
    <message>
        <source>the frame could not be written</source>
        <translation>das Telegramm konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>the wrench has not answered within %1 s</source>
        <translation>der Schlüssel hat innerhalb von %1 s nicht geantwortet</translation>
    </message>
    <message>
        <source>bring the wrench nearer and try again</source>
        <translation>bringen Sie den Schlüssel näher, und versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>the wrench could not be locked</source>
        <translation>der Schlüssel konnte nicht gesperrt werden</translation>
    </message>
</context>
<context>
    <name>WrenchScan</name>
    <message>
        <source>the line is not usable</source>
        <translation>die Leitung ist nicht nutzbar</translation>
    </message>
    <message>
        <source>no wrench was heard</source>
        <translation>es war kein Schlüssel zu hören</translation>
    </message>
    <message>
        <source>switch the wrench on, bring it near, and check the port</source>
        <translation>schalten Sie den Schlüssel ein, bringen Sie ihn näher, und prüfen Sie den Anschluss</translation>
    </message>
</context>
<context>
    <name>WrenchStage</name>
    <message>
        <source>the wrench acknowledges</source>
        <translation>der Schlüssel quittiert</translation>
    </message>
    <message>
        <source>DI:C to the wrench, which tells its lock and changes nothing</source>
        <translation>DI:C an den Schlüssel, der seine Sperre meldet und nichts ändert</translation>
    </message>
    <message>
        <source>the line said &quot;%1&quot;</source>
        <translation>auf der Leitung kam „%1“</translation>
    </message>
    <message>
        <source>the wrench answers; it is locked</source>
        <translation>der Schlüssel antwortet; er ist gesperrt</translation>
    </message>
    <message>
        <source>the wrench answers; it is unlocked</source>
        <translation>der Schlüssel antwortet; er ist entsperrt</translation>
    </message>
    <message>
        <source>the dongle does not open the link again for a frame</source>
        <translation>der Funkadapter öffnet die Verbindung für ein Telegramm nicht wieder</translation>
    </message>
    <message>
        <source>set the dongle to open its last link by itself</source>
        <translation>stellen Sie den Funkadapter so ein, dass er seine letzte Verbindung selbst öffnet</translation>
    </message>
    <message>
        <source>the wrench is not reached</source>
        <translation>der Schlüssel ist nicht erreichbar</translation>
    </message>
    <message>
        <source>bring the wrench nearer and try again</source>
        <translation>bringen Sie den Schlüssel näher und versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>the wrench answers nonsense</source>
        <translation>der Schlüssel antwortet Unverständliches</translation>
    </message>
    <message>
        <source>it was asked for its lock, and said %1</source>
        <translation>er wurde nach seiner Sperre gefragt und sagte %1</translation>
    </message>
    <message>
        <source>switch the wrench off and on; when that does not help it is of another kind, or broken</source>
        <translation>schalten Sie den Schlüssel aus und ein; hilft das nicht, ist er von anderer Art oder defekt</translation>
    </message>
    <message>
        <source>the wrench is silent, although its link opens</source>
        <translation>der Schlüssel schweigt, obwohl seine Funkstrecke zustande kommt</translation>
    </message>
    <message>
        <source>it did not answer to &quot;%1&quot;</source>
        <translation>er hat auf „%1“ nicht geantwortet</translation>
    </message>
    <message>
        <source>switch the wrench off and on, and bring it near</source>
        <translation>schalten Sie den Schlüssel aus und ein, und bringen Sie ihn näher</translation>
    </message>
</context>
</TS>
