<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>SerialDriver</name>
    <message>
        <source>&quot;setKeepAliveFonction&quot; needs a &quot;frame&quot; that is a text or a byte array; an empty one switches the keep-alive off.</source>
        <translation>„setKeepAliveFonction“ braucht ein „frame“, das ein Text oder ein Byte-Array ist; ein leeres schaltet die Lebenszeichen ab.</translation>
    </message>
    <message>
        <source>&quot;setKeepAliveFonction&quot; needs a &quot;responseFrame&quot; that is a text or a byte array and is not empty: any line would be taken for the answer otherwise.</source>
        <translation>„setKeepAliveFonction“ braucht ein „responseFrame“, das ein Text oder ein Byte-Array und nicht leer ist: Sonst gälte jede Zeile als Antwort.</translation>
    </message>
    <message>
        <source>&quot;setTrace&quot; needs a &quot;file&quot; that is a text: a path, &quot;-&quot; for standard error, or empty to end the trace.</source>
        <translation>„setTrace“ braucht ein „file“, das ein Text ist: ein Pfad, „-“ für die Standardfehlerausgabe, oder leer zum Beenden des Mitschnitts.</translation>
    </message>
    <message>
        <source>&quot;write&quot; needs a &quot;frame&quot; that is a byte array or a text and is not empty.</source>
        <translation>„write“ braucht ein „frame“, das ein Byte-Array oder ein Text und nicht leer ist.</translation>
    </message>
    <message>
        <source>The &quot;timeout&quot; of &quot;write&quot; is &quot;%1&quot;: it must be a number of milliseconds above 0.</source>
        <translation>Der „timeout“ von „write“ ist „%1“: Er muss eine Anzahl Millisekunden über 0 sein.</translation>
    </message>
    <message>
        <source>The serial driver of this command has been removed: run the command on another one.</source>
        <translation>Der serielle Treiber dieses Befehls wurde entfernt: Führen Sie den Befehl auf einem anderen aus.</translation>
    </message>
    <message>
        <source>a text</source>
        <translation>ein Text</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <translation>eine ganze Zahl von %1 bis %2</translation>
    </message>
    <message>
        <source>one of %1</source>
        <translation>eines von %1</translation>
    </message>
    <message>
        <source>The setting &quot;%1&quot; of the serial driver is %2: it must be %3.</source>
        <translation>Die Einstellung „%1“ des seriellen Treibers ist %2; erlaubt ist: %3.</translation>
    </message>
    <message>
        <source>The serial driver has no port: set &quot;port&quot; to the path of one, best a name below /dev/serial/by-id/, which survives re-plugging.</source>
        <translation>Der serielle Treiber hat keinen Anschluss: Setzen Sie „port“ auf dessen Pfad, am besten auf einen Namen unter /dev/serial/by-id/, der das Umstecken übersteht.</translation>
    </message>
    <message>
        <source>The trace cannot be written to %1 (%2): name a file in a folder that you may write to, or &quot;-&quot; for standard error.</source>
        <translation>Der Mitschnitt lässt sich nicht nach %1 schreiben (%2): Nennen Sie eine Datei in einem Ordner mit Schreibrecht, oder „-“ für die Standardfehlerausgabe.</translation>
    </message>
    <message>
        <source>The trace of %1 to %2 ends here, it cannot be written (%3): make room and switch it on again.</source>
        <translation>Der Mitschnitt von %1 nach %2 endet hier, er lässt sich nicht schreiben (%3): Schaffen Sie Platz und schalten Sie ihn wieder ein.</translation>
    </message>
    <message>
        <source>The port %1 does not exist and this machine has no serial port: plug the adapter in.</source>
        <translation>Den Anschluss %1 gibt es nicht, und dieser Rechner hat keinen seriellen Anschluss: Stecken Sie den Adapter ein.</translation>
    </message>
    <message>
        <source>The port %1 does not exist: plug the adapter in, or set &quot;port&quot; to one that does: %2.</source>
        <translation>Den Anschluss %1 gibt es nicht: Stecken Sie den Adapter ein, oder setzen Sie „port“ auf einen vorhandenen: %2.</translation>
    </message>
    <message>
        <source>%1 is no serial port: set &quot;port&quot; to one, for example below %2/.</source>
        <translation>%1 ist kein serieller Anschluss: Setzen Sie „port“ auf einen, zum Beispiel unter %2/.</translation>
    </message>
    <message>
        <source>The port %1 is in use by another device of this program (process %2): give each device a port of its own.</source>
        <translation>Der Anschluss %1 wird von einem anderen Gerät dieses Programms benutzt (Prozess %2): Geben Sie jedem Gerät einen eigenen.</translation>
    </message>
    <message>
        <source>Another program holds the port %1: %2 %3; close that program or choose another port.</source>
        <translation>Ein anderes Programm hält den Anschluss %1: %2 %3; schließen Sie dieses Programm, oder wählen Sie einen anderen Anschluss.</translation>
    </message>
    <message>
        <source>Another program holds the port %1, one of another user, which only root can see: run &quot;sudo lsof %2&quot; to learn which, and close it or choose another port.</source>
        <translation>Ein anderes Programm hält den Anschluss %1, eines von einem anderen Benutzer, das nur root sieht: „sudo lsof %2“ zeigt, welches; schließen Sie es, oder wählen Sie einen anderen Anschluss.</translation>
    </message>
    <message>
        <source>The port %1 is locked by the file %2 of another user&apos;s process %3, which has ended: run &quot;sudo rm %2&quot;.</source>
        <translation>Der Anschluss %1 ist durch die Datei %2 des beendeten Prozesses %3 eines anderen Benutzers gesperrt: Führen Sie „sudo rm %2“ aus.</translation>
    </message>
    <message>
        <source>The port %1 cannot be opened (%2): check that it is a working serial port.</source>
        <translation>Der Anschluss %1 lässt sich nicht öffnen (%2): Prüfen Sie, ob er ein funktionierender serieller Anschluss ist.</translation>
    </message>
    <message>
        <source>The port %1 does not support the configured &quot;%2&quot;: set it to what the port and the device at its other end both have.</source>
        <translation>Der Anschluss %1 kann das eingestellte „%2“ nicht: Stellen Sie ein, was Anschluss und Gegenstelle beide können.</translation>
    </message>
    <message>
        <source>The port %1 went away while in use: plug its adapter in again.</source>
        <translation>Der Anschluss %1 verschwand während der Benutzung: Stecken Sie seinen Adapter wieder ein.</translation>
    </message>
    <message>
        <source>The port %1 may not be opened by this user, nor by a group that the user could join: run &quot;sudo chown $USER %2&quot;.</source>
        <translation>Den Anschluss %1 darf weder dieser Benutzer öffnen noch eine Gruppe, der er beitreten könnte: Führen Sie „sudo chown $USER %2“ aus.</translation>
    </message>
    <message>
        <source>The port %1 may not be opened yet: this user has been given the group %2 after logging in, so log out and in again.</source>
        <translation>Der Anschluss %1 darf noch nicht geöffnet werden: Dieser Benutzer kam erst nach der Anmeldung in die Gruppe %2; melden Sie sich ab und wieder an.</translation>
    </message>
    <message>
        <source>The port %1 may not be opened by this user: run &quot;sudo usermod -aG %2 $USER&quot; and log in again.</source>
        <translation>Den Anschluss %1 darf dieser Benutzer nicht öffnen: Führen Sie „sudo usermod -aG %2 $USER“ aus und melden Sie sich neu an.</translation>
    </message>
    <message>
        <source>The port %1 did not take a frame of %2 bytes within %3 ms: check the device at its other end and its flow control.</source>
        <translation>Der Anschluss %1 nahm ein Telegramm von %2 Byte nicht innerhalb von %3 ms an: Prüfen Sie die Gegenstelle und ihre Flusssteuerung.</translation>
    </message>
    <message>
        <source>The device on %1 has left the keep-alive frame unanswered %2 times: check that it is switched on and in range.</source>
        <translation>Das Gerät an %1 hat %2-mal nicht auf das Lebenszeichen geantwortet: Prüfen Sie, ob es eingeschaltet und in Reichweite ist.</translation>
    </message>
</context>
</TS>
