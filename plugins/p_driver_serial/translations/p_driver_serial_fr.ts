<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>SerialDriver</name>
    <message>
        <source>&quot;setKeepAliveFonction&quot; needs a &quot;frame&quot; that is a text or a byte array; an empty one switches the keep-alive off.</source>
        <translation>« setKeepAliveFonction » a besoin d’un « frame » qui soit un texte ou un tableau d’octets ; vide, il désactive le signe de vie.</translation>
    </message>
    <message>
        <source>&quot;setKeepAliveFonction&quot; needs a &quot;responseFrame&quot; that is a text or a byte array and is not empty: any line would be taken for the answer otherwise.</source>
        <translation>« setKeepAliveFonction » a besoin d’un « responseFrame » non vide, texte ou tableau d’octets : sinon toute ligne serait prise pour la réponse.</translation>
    </message>
    <message>
        <source>&quot;setTrace&quot; needs a &quot;file&quot; that is a text: a path, &quot;-&quot; for standard error, or empty to end the trace.</source>
        <translation>« setTrace » a besoin d’un « file » qui soit un texte : un chemin, « - » pour la sortie d’erreur, ou vide pour finir la trace.</translation>
    </message>
    <message>
        <source>&quot;write&quot; needs a &quot;frame&quot; that is a byte array or a text and is not empty.</source>
        <translation>« write » a besoin d’un « frame » non vide, tableau d’octets ou texte.</translation>
    </message>
    <message>
        <source>The &quot;timeout&quot; of &quot;write&quot; is &quot;%1&quot;: it must be a number of milliseconds above 0.</source>
        <translation>Le « timeout » de « write » vaut « %1 » : ce doit être un nombre de millisecondes supérieur à 0.</translation>
    </message>
    <message>
        <source>The serial driver of this command has been removed: run the command on another one.</source>
        <translation>Le pilote série de cette commande a été retiré : exécutez la commande sur un autre.</translation>
    </message>
    <message>
        <source>a text</source>
        <translation>un texte</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <translation>un nombre entier de %1 à %2</translation>
    </message>
    <message>
        <source>one of %1</source>
        <translation>parmi %1</translation>
    </message>
    <message>
        <source>The setting &quot;%1&quot; of the serial driver is %2: it must be %3.</source>
        <translation>Le réglage « %1 » du pilote série vaut %2 ; valeurs admises : %3.</translation>
    </message>
    <message>
        <source>The serial driver has no port: set &quot;port&quot; to the path of one, best a name below /dev/serial/by-id/, which survives re-plugging.</source>
        <translation>Le pilote série n’a pas de port : donnez à « port » son chemin, de préférence un nom sous /dev/serial/by-id/, qui survit au rebranchement.</translation>
    </message>
    <message>
        <source>The trace cannot be written to %1 (%2): name a file in a folder that you may write to, or &quot;-&quot; for standard error.</source>
        <translation>La trace ne peut pas être écrite dans %1 (%2) : indiquez un fichier dans un dossier où vous pouvez écrire, ou « - » pour la sortie d’erreur.</translation>
    </message>
    <message>
        <source>The trace of %1 to %2 ends here, it cannot be written (%3): make room and switch it on again.</source>
        <translation>La trace de %1 vers %2 s’arrête ici, elle ne peut pas être écrite (%3) : faites de la place et réactivez-la.</translation>
    </message>
    <message>
        <source>The port %1 does not exist and this machine has no serial port: plug the adapter in.</source>
        <translation>Le port %1 n’existe pas et cette machine n’a pas de port série : branchez l’adaptateur.</translation>
    </message>
    <message>
        <source>The port %1 does not exist: plug the adapter in, or set &quot;port&quot; to one that does: %2.</source>
        <translation>Le port %1 n’existe pas : branchez l’adaptateur, ou donnez à « port » un port existant : %2.</translation>
    </message>
    <message>
        <source>%1 is no serial port: set &quot;port&quot; to one, for example below %2/.</source>
        <translation>%1 n’est pas un port série : donnez à « port » un port série, par exemple sous %2/.</translation>
    </message>
    <message>
        <source>The port %1 is in use by another device of this program (process %2): give each device a port of its own.</source>
        <translation>Le port %1 est utilisé par un autre appareil de ce programme (processus %2) : donnez à chaque appareil son propre port.</translation>
    </message>
    <message>
        <source>Another program holds the port %1: %2 %3; close that program or choose another port.</source>
        <translation>Un autre programme occupe le port %1 : %2 %3 ; fermez ce programme ou choisissez un autre port.</translation>
    </message>
    <message>
        <source>Another program holds the port %1, one of another user, which only root can see: run &quot;sudo lsof %2&quot; to learn which, and close it or choose another port.</source>
        <translation>Un autre programme occupe le port %1, celui d’un autre utilisateur, que seul root peut voir : « sudo lsof %2 » dit lequel ; fermez-le ou choisissez un autre port.</translation>
    </message>
    <message>
        <source>The port %1 is locked by the file %2 of another user&apos;s process %3, which has ended: run &quot;sudo rm %2&quot;.</source>
        <translation>Le port %1 est verrouillé par le fichier %2 du processus %3 d’un autre utilisateur, qui est terminé : exécutez « sudo rm %2 ».</translation>
    </message>
    <message>
        <source>The port %1 cannot be opened (%2): check that it is a working serial port.</source>
        <translation>Le port %1 ne peut pas être ouvert (%2) : vérifiez que c’est un port série en état de marche.</translation>
    </message>
    <message>
        <source>The port %1 does not support the configured &quot;%2&quot;: set it to what the port and the device at its other end both have.</source>
        <translation>Le port %1 ne permet pas le réglage « %2 » : choisissez ce que le port et l’appareil en face savent faire tous deux.</translation>
    </message>
    <message>
        <source>The port %1 went away while in use: plug its adapter in again.</source>
        <translation>Le port %1 a disparu pendant son utilisation : rebranchez son adaptateur.</translation>
    </message>
    <message>
        <source>The port %1 may not be opened by this user, nor by a group that the user could join: run &quot;sudo chown $USER %2&quot;.</source>
        <translation>Le port %1 ne peut être ouvert ni par cet utilisateur, ni par un groupe qu’il pourrait rejoindre : exécutez « sudo chown $USER %2 ».</translation>
    </message>
    <message>
        <source>The port %1 may not be opened yet: this user has been given the group %2 after logging in, so log out and in again.</source>
        <translation>Le port %1 ne peut pas encore être ouvert : cet utilisateur a reçu le groupe %2 après sa connexion ; déconnectez-vous et reconnectez-vous.</translation>
    </message>
    <message>
        <source>The port %1 may not be opened by this user: run &quot;sudo usermod -aG %2 $USER&quot; and log in again.</source>
        <translation>Le port %1 ne peut pas être ouvert par cet utilisateur : exécutez « sudo usermod -aG %2 $USER » et reconnectez-vous.</translation>
    </message>
    <message>
        <source>The port %1 did not take a frame of %2 bytes within %3 ms: check the device at its other end and its flow control.</source>
        <translation>Le port %1 n’a pas accepté une trame de %2 octets en %3 ms : vérifiez l’appareil en face et son contrôle de flux.</translation>
    </message>
    <message>
        <source>The device on %1 has left the keep-alive frame unanswered %2 times: check that it is switched on and in range.</source>
        <translation>L’appareil sur %1 n’a pas répondu %2 fois au signe de vie : vérifiez qu’il est allumé et à portée.</translation>
    </message>
</context>
</TS>
