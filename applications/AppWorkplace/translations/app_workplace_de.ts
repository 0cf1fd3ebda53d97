<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
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
        <source>no command is given</source>
        <translation>es ist kein Befehl angegeben</translation>
    </message>
    <message>
        <source>there is no command &quot;%1&quot;</source>
        <translation>den Befehl „%1“ gibt es nicht</translation>
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
    <name>Console</name>
    <message>
        <source>The results cannot be written (%1): make room, or write them elsewhere.</source>
        <translation>Die Ergebnisse lassen sich nicht schreiben (%1): Schaffen Sie Platz, oder schreiben Sie sie anderswohin.</translation>
    </message>
</context>
<context>
    <name>DeviceStore</name>
    <message>
        <source>it holds no JSON object</source>
        <translation>sie enthält kein JSON-Objekt</translation>
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
        <source>check the name and the rights of the file</source>
        <translation>prüfen Sie Namen und Rechte der Datei</translation>
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
    <name>Settings</name>
    <message>
        <source>The serial port, or &quot;simulated&quot; (the default) for a simulator of its own.</source>
        <translation>Der serielle Anschluss, oder „simulated“ (die Vorgabe) für einen eigenen Simulator.</translation>
    </message>
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
</context>
<context>
    <name>WorkplaceCommand</name>
    <message>
        <source>plugins from %1: %2</source>
        <translation>Plugins aus %1: %2</translation>
    </message>
</context>
</TS>
