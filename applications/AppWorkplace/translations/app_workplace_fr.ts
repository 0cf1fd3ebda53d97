<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>BasePanelMaintenance</name>
    <message>
        <source>line open</source>
        <translation>ligne ouverte</translation>
    </message>
    <message>
        <source>line not open</source>
        <translation>ligne fermée</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Usage: %1 [options] COMMAND …

Runs a tightening workplace with one wireless torque wrench.

Commands (each has --help):
</source>
        <translation>Utilisation : %1 [options] COMMANDE …

Fait fonctionner un poste de serrage avec une clé dynamométrique sans fil.

Commandes (chacune connaît --help) :
</translation>
    </message>
    <message>
        <source>
Options, before or behind the command:
</source>
        <translation>
Options, avant ou après la commande :
</translation>
    </message>
    <message>
        <source>
Exit status: 0 done, 1 the device said no or did not answer, 2 wrong usage, 3 set-up problem.</source>
        <translation>
Code de retour : 0 terminé, 1 l’appareil a refusé ou n’a pas répondu, 2 mauvaise utilisation, 3 problème d’installation.</translation>
    </message>
    <message>
        <source>Usage: %1 [options] %2

%3
</source>
        <translation>Utilisation : %1 [options] %2

%3
</translation>
    </message>
    <message>
        <source>
Options of this command:
</source>
        <translation>
Options de cette commande :
</translation>
    </message>
    <message>
        <source>
Options of every command:
</source>
        <translation>
Options de toutes les commandes :
</translation>
    </message>
    <message>
        <source>see %1 --help</source>
        <translation>voir %1 --help</translation>
    </message>
    <message>
        <source>there is no option &quot;--%1&quot;</source>
        <translation>l’option « --%1 » n’existe pas</translation>
    </message>
    <message>
        <source>unexpected value after &apos;%1&apos;</source>
        <translation>valeur inattendue après « %1 »</translation>
    </message>
    <message>
        <source>missing value after &apos;%1&apos;</source>
        <translation>il manque une valeur après « %1 »</translation>
    </message>
    <message>
        <source>A configuration file; the command line goes before it. Empty: none.</source>
        <translation>Un fichier de configuration ; la ligne de commande l’emporte. Vide : aucun.</translation>
    </message>
    <message>
        <source>Shows this help.</source>
        <translation>Affiche cette aide.</translation>
    </message>
    <message>
        <source>Shows the version.</source>
        <translation>Affiche la version.</translation>
    </message>
    <message>
        <source>no command is given</source>
        <translation>aucune commande n’est indiquée</translation>
    </message>
    <message>
        <source>there is no command &quot;%1&quot;</source>
        <translation>la commande « %1 » n’existe pas</translation>
    </message>
    <message>
        <source>the port &quot;%1&quot; names no file</source>
        <translation>le port « %1 » ne nomme aucun fichier</translation>
    </message>
    <message>
        <source>name a scenario as simulated:FILE, or write only &quot;simulated&quot;</source>
        <translation>nommez un scénario sous la forme simulated:FICHIER, ou écrivez seulement « simulated »</translation>
    </message>
</context>
<context>
    <name>CommandsCommand</name>
    <message>
        <source>one command can be told about, not %1</source>
        <translation>une seule commande peut être décrite, pas %1</translation>
    </message>
    <message>
        <source>see app_workplace commands --help</source>
        <translation>voir app_workplace commands --help</translation>
    </message>
    <message>
        <source>%1: none declared</source>
        <translation>%1 : rien n’est déclaré</translation>
    </message>
    <message>
        <source>name</source>
        <translation>nom</translation>
    </message>
    <message>
        <source>type</source>
        <translation>type</translation>
    </message>
    <message>
        <source>default</source>
        <translation>valeur par défaut</translation>
    </message>
    <message>
        <source>description</source>
        <translation>description</translation>
    </message>
    <message>
        <source>Lists what the loaded plugins offer, or tells about one command.</source>
        <translation>Liste ce que proposent les modules chargés, ou décrit une commande.</translation>
    </message>
    <message>
        <source>there is no plugin</source>
        <translation>il n’y a aucun module</translation>
    </message>
    <message>
        <source>none was loaded</source>
        <translation>aucun n’a été chargé</translation>
    </message>
    <message>
        <source>check the folder of the plugins with --plugins</source>
        <translation>vérifiez le dossier des modules avec --plugins</translation>
    </message>
    <message>
        <source>no loaded plugin has the command &quot;%1&quot;</source>
        <translation>aucun module chargé n’a la commande « %1 »</translation>
    </message>
    <message>
        <source>&quot;app_workplace commands&quot; lists what there is</source>
        <translation>« app_workplace commands » montre ce qui existe</translation>
    </message>
    <message>
        <source>command</source>
        <translation>commande</translation>
    </message>
    <message>
        <source>stopped by</source>
        <translation>arrêtée par</translation>
    </message>
    <message>
        <source>Runs until it is stopped by &quot;%1&quot; (Ctrl-C).</source>
        <translation>Continue jusqu’à l’arrêt par « %1 » (Ctrl-C).</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>Results</source>
        <translation>Résultats</translation>
    </message>
</context>
<context>
    <name>CompletionCommand</name>
    <message>
        <source>for which shell is not said, or for one that is not known</source>
        <translation>l’interpréteur n’est pas indiqué, ou il est inconnu</translation>
    </message>
    <message>
        <source>write &quot;app_workplace completion bash&quot; or &quot;app_workplace completion zsh&quot;</source>
        <translation>écrivez « app_workplace completion bash » ou « app_workplace completion zsh »</translation>
    </message>
    <message>
        <source>Prints the script that completes command lines in a shell.</source>
        <translation>Affiche le script qui complète les lignes de commande dans un interpréteur.</translation>
    </message>
</context>
<context>
    <name>ConfigCommand</name>
    <message>
        <source>the configuration takes no argument &quot;%1&quot;</source>
        <translation>la configuration n’accepte pas l’argument « %1 »</translation>
    </message>
    <message>
        <source>see %1 --help</source>
        <translation>voir %1 --help</translation>
    </message>
    <message>
        <source>default</source>
        <translation>valeur par défaut</translation>
    </message>
    <message>
        <source>%1, line %2</source>
        <translation>%1, ligne %2</translation>
    </message>
    <message>
        <source>environment, %1</source>
        <translation>environnement, %1</translation>
    </message>
    <message>
        <source>command line, %1</source>
        <translation>ligne de commande, %1</translation>
    </message>
    <message>
        <source>Shows the settings in effect and where each comes from.</source>
        <translation>Montre les réglages en vigueur et l’origine de chacun.</translation>
    </message>
    <message>
        <source>Writes a commented file of the defaults, to this user&apos;s own place when no other is named; - for standard output.</source>
        <translation>Écrit un fichier commenté des valeurs par défaut, à l’emplacement de cet utilisateur si aucun autre n’est indiqué ; - pour la sortie standard.</translation>
    </message>
    <message>
        <source>the file %1 is not written</source>
        <translation>le fichier %1 n’est pas écrit</translation>
    </message>
    <message>
        <source>it is there already</source>
        <translation>il existe déjà</translation>
    </message>
    <message>
        <source>name another file, or move that one away</source>
        <translation>indiquez un autre fichier, ou déplacez celui-ci</translation>
    </message>
    <message>
        <source>%1 is written; it holds the defaults.</source>
        <translation>%1 est écrit ; il contient les valeurs par défaut.</translation>
    </message>
    <message>
        <source>setting</source>
        <translation>réglage</translation>
    </message>
    <message>
        <source>value</source>
        <translation>valeur</translation>
    </message>
    <message>
        <source>from</source>
        <translation>origine</translation>
    </message>
    <message>
        <source>Configuration: %1</source>
        <translation>Configuration : %1</translation>
    </message>
    <message>
        <source>Configuration: none was read; this user&apos;s own would be %1</source>
        <translation>Configuration : aucune n’a été lue ; celle de cet utilisateur serait %1</translation>
    </message>
</context>
<context>
    <name>ConfigurationFile</name>
    <message>
        <source>put its value between quotes</source>
        <translation>mettez sa valeur entre guillemets</translation>
    </message>
    <message>
        <source>write true or false</source>
        <translation>écrivez true ou false</translation>
    </message>
    <message>
        <source>write a whole number, without quotes</source>
        <translation>écrivez un nombre entier, sans guillemets</translation>
    </message>
    <message>
        <source>write a number, without quotes</source>
        <translation>écrivez un nombre, sans guillemets</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a text</source>
        <translation>« %1 » n’est pas un texte</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither true nor false</source>
        <translation>« %1 » ne vaut ni true ni false</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a whole number</source>
        <translation>« %1 » n’est pas un nombre entier</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number</source>
        <translation>« %1 » n’est pas un nombre</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an object</source>
        <translation>« %1 » n’est pas un objet</translation>
    </message>
    <message>
        <source>write &quot;%1&quot;: {…}</source>
        <translation>écrivez &quot;%1&quot;: {…}</translation>
    </message>
    <message>
        <source>write &quot;driver&quot;: {&quot;baudRate&quot;: 115200}</source>
        <translation>écrivez &quot;driver&quot;: {&quot;baudRate&quot;: 115200}</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not known</source>
        <translation>« %1 » est inconnu</translation>
    </message>
    <message>
        <source>known are: %1</source>
        <translation>sont connus : %1</translation>
    </message>
    <message>
        <source>the configuration %1 is not used, line %2</source>
        <translation>la configuration %1 n’est pas utilisée, ligne %2</translation>
    </message>
    <message>
        <source>the configuration %1 cannot be read</source>
        <translation>la configuration %1 est illisible</translation>
    </message>
    <message>
        <source>check the name and the rights of the file</source>
        <translation>vérifiez le nom et les droits du fichier</translation>
    </message>
    <message>
        <source>mend the JSON text there</source>
        <translation>corrigez le texte JSON à cet endroit</translation>
    </message>
    <message>
        <source>it is not a JSON object</source>
        <translation>ce n’est pas un objet JSON</translation>
    </message>
    <message>
        <source>write {&quot;port&quot;: &quot;…&quot;, &quot;serialId&quot;: &quot;…&quot;}</source>
        <translation>écrivez {&quot;port&quot;: &quot;…&quot;, &quot;serialId&quot;: &quot;…&quot;}</translation>
    </message>
    <message>
        <source>the configuration %1 is not used</source>
        <translation>la configuration %1 n’est pas utilisée</translation>
    </message>
    <message>
        <source>it is longer than %1 bytes</source>
        <translation>elle dépasse %1 octets</translation>
    </message>
    <message>
        <source>name a configuration file; no configuration is so long</source>
        <translation>indiquez un fichier de configuration ; aucune configuration n’est si longue</translation>
    </message>
    <message>
        <source>write a list: [&quot;…&quot;, &quot;…&quot;]</source>
        <translation>écrivez une liste : [&quot;…&quot;, &quot;…&quot;]</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a list of texts</source>
        <translation>« %1 » n’est pas une liste de textes</translation>
    </message>
</context>
<context>
    <name>ConfigurationText</name>
    <message>
        <source>%1 For example: %2</source>
        <translation>%1 Par exemple : %2</translation>
    </message>
    <message>
        <source>Configuration of app_workplace. Keys that begin with // are comments. The values are the defaults; an empty text stands for &quot;not said&quot;. What is given on the command line goes before it.</source>
        <translation>Configuration de app_workplace. Les clés qui commencent par // sont des commentaires. Les valeurs sont celles par défaut ; un texte vide signifie « non indiqué ». La ligne de commande l’emporte.</translation>
    </message>
    <message>
        <source>Settings of the serial driver.</source>
        <translation>Réglages du pilote série.</translation>
    </message>
</context>
<context>
    <name>ConnectPage</name>
    <message>
        <source>Wrenches in range</source>
        <translation>Clés à portée</translation>
    </message>
    <message>
        <source>%1, %2 dBm</source>
        <comment>address, signal</comment>
        <translation>%1, %2 dBm</translation>
    </message>
    <message>
        <source>Switch the wrench on, and come closer with it.</source>
        <translation>Allumez la clé et approchez-la.</translation>
    </message>
    <message>
        <source>Start a scan to see which ones are there.</source>
        <translation>Lancez une recherche pour voir lesquelles sont là.</translation>
    </message>
    <message>
        <source>The dongle talks to one wrench at a time; disconnect to scan.</source>
        <translation>Le dongle parle à une seule clé à la fois ; déconnectez-la pour rechercher.</translation>
    </message>
    <message>
        <source>No wrench heard yet</source>
        <translation>Aucune clé entendue pour l’instant</translation>
    </message>
    <message>
        <source>No scan yet</source>
        <translation>Aucune recherche pour l’instant</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>By its number</source>
        <translation>Par son numéro</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>Numéro de série</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Connecter</translation>
    </message>
    <message>
        <source>Port: %1</source>
        <translation>Port : %1</translation>
    </message>
</context>
<context>
    <name>Console</name>
    <message>
        <source>The results cannot be written (%1): make room, or write them elsewhere.</source>
        <translation>Impossible d’écrire les résultats (%1) : faites de la place, ou écrivez-les ailleurs.</translation>
    </message>
</context>
<context>
    <name>DeviceModel</name>
    <message>
        <source>no loaded plugin has the command &quot;%1&quot;</source>
        <translation>aucun module chargé n’a la commande « %1 »</translation>
    </message>
    <message>
        <source>name the folder of the plugins with --plugins</source>
        <translation>indiquez le dossier des modules avec --plugins</translation>
    </message>
    <message>
        <source>which wrench is not said</source>
        <translation>il n’est pas dit quelle clé</translation>
    </message>
    <message>
        <source>pick one that is in range, or type its serial number</source>
        <translation>choisissez-en une à portée, ou tapez son numéro de série</translation>
    </message>
    <message>
        <source>Wrench %1</source>
        <translation>Clé %1</translation>
    </message>
    <message>
        <source>Simulated line</source>
        <translation>Ligne simulée</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>non connectée</translation>
    </message>
    <message>
        <source>looking for wrenches in range</source>
        <translation>recherche des clés à portée</translation>
    </message>
    <message>
        <source>ready: results are taken</source>
        <translation>prête : les résultats sont enregistrés</translation>
    </message>
    <message>
        <source>link lost; attempt %1 in %2 s: %3</source>
        <translation>liaison perdue ; tentative %1 dans %2 s : %3</translation>
    </message>
    <message>
        <source>link lost; attempt %1 to restore it</source>
        <translation>liaison perdue ; tentative %1 de la rétablir</translation>
    </message>
    <message>
        <source>link lost: %1</source>
        <translation>liaison perdue : %1</translation>
    </message>
    <message>
        <source>Program %1</source>
        <translation>Programme %1</translation>
    </message>
    <message>
        <source>going to program %1</source>
        <translation>passage au programme %1</translation>
    </message>
    <message>
        <source>locking</source>
        <translation>verrouillage</translation>
    </message>
    <message>
        <source>unlocking</source>
        <translation>déverrouillage</translation>
    </message>
    <message>
        <source>no wrench is connected</source>
        <translation>aucune clé n’est connectée</translation>
    </message>
    <message>
        <source>connect one first</source>
        <translation>connectez-en une d’abord</translation>
    </message>
    <message>
        <source>the maintenance panel is at work</source>
        <translation>le panneau de maintenance travaille</translation>
    </message>
    <message>
        <source>ending: the dongle hangs up</source>
        <translation>fin en cours : le dongle raccroche</translation>
    </message>
    <message>
        <source>opening the line</source>
        <translation>ouverture de la ligne</translation>
    </message>
    <message>
        <source>looking for the wrench %1, and connecting</source>
        <translation>recherche de la clé %1, puis connexion</translation>
    </message>
    <message>
        <source>configuring the wrench</source>
        <translation>configuration de la clé</translation>
    </message>
    <message>
        <source>reading the programs</source>
        <translation>lecture des programmes</translation>
    </message>
    <message>
        <source>selecting the program</source>
        <translation>sélection du programme</translation>
    </message>
    <message>
        <source>unlocking the wrench</source>
        <translation>déverrouillage de la clé</translation>
    </message>
</context>
<context>
    <name>DeviceRow</name>
    <message>
        <source>problem</source>
        <translation>problème</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>non connectée</translation>
    </message>
    <message>
        <source>scanning</source>
        <translation>recherche</translation>
    </message>
    <message>
        <source>connecting</source>
        <translation>connexion en cours</translation>
    </message>
    <message>
        <source>connected</source>
        <translation>connectée</translation>
    </message>
    <message>
        <source>restoring</source>
        <translation>rétablissement</translation>
    </message>
    <message>
        <source>ending</source>
        <translation>fin en cours</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
</context>
<context>
    <name>DeviceRun</name>
    <message>
        <source>the device plugin has no command &quot;%1&quot;</source>
        <translation>le module d’appareil n’a pas de commande « %1 »</translation>
    </message>
    <message>
        <source>the time limit of %1 s ended it, %2</source>
        <translation>la limite de %1 s l’a arrêtée, %2</translation>
    </message>
    <message>
        <source>there was no answer</source>
        <translation>il n’y a pas eu de réponse</translation>
    </message>
    <message>
        <source>the device plugin refused &quot;%1&quot;</source>
        <translation>le module d’appareil a refusé « %1 »</translation>
    </message>
</context>
<context>
    <name>DeviceSettings</name>
    <message>
        <source>name each as PORT or PORT,NUMBER, each port once</source>
        <translation>nommez chacun PORT ou PORT,NUMÉRO, chaque port une fois</translation>
    </message>
    <message>
        <source>the device &quot;%1&quot; has no port</source>
        <translation>l’appareil « %1 » n’a pas de port</translation>
    </message>
    <message>
        <source>two devices have the port %1</source>
        <translation>deux appareils ont le port %1</translation>
    </message>
    <message>
        <source>the device &quot;%1&quot; names no scenario</source>
        <translation>l’appareil « %1 » ne nomme aucun scénario</translation>
    </message>
</context>
<context>
    <name>Doctor</name>
    <message>
        <source>&quot;%1&quot; has failed</source>
        <translation>« %1 » a échoué</translation>
    </message>
    <message>
        <source>interrupted</source>
        <translation>interrompu</translation>
    </message>
    <message>
        <source>the port cannot be used</source>
        <translation>le port n’est pas utilisable</translation>
    </message>
    <message>
        <source>locks the wrench again, as it was found (DT:1)</source>
        <translation>reverrouille la clé, comme elle a été trouvée (DT:1)</translation>
    </message>
    <message>
        <source>leaves the wrench unlocked, as it was found (DT:0)</source>
        <translation>laisse la clé déverrouillée, comme elle a été trouvée (DT:0)</translation>
    </message>
    <message>
        <source>the wrench could not be locked again, as it was found</source>
        <translation>la clé n’a pas pu être reverrouillée, comme elle avait été trouvée</translation>
    </message>
    <message>
        <source>the wrench could not be left unlocked, as it was found</source>
        <translation>la clé n’a pas pu être laissée déverrouillée, comme elle avait été trouvée</translation>
    </message>
    <message>
        <source>tightening results that have come meanwhile, and are not stored: %1; a session stores what comes</source>
        <translation>résultats de serrage arrivés entre-temps et non enregistrés : %1 ; une session enregistre ce qui arrive</translation>
    </message>
</context>
<context>
    <name>DoctorCommand</name>
    <message>
        <source>the doctor takes no argument &quot;%1&quot;</source>
        <translation>l’examen n’accepte pas l’argument « %1 »</translation>
    </message>
    <message>
        <source>see app_workplace doctor --help</source>
        <translation>voir app_workplace doctor --help</translation>
    </message>
    <message>
        <source>Looks at the workplace step by step, and says how to mend what fails.</source>
        <translation>Examine le poste étape par étape, et dit comment réparer ce qui ne marche pas.</translation>
    </message>
    <message>
        <source>Asks you to tighten once, and waits so long for the result; not done otherwise.</source>
        <translation>Vous demande un serrage et attend le résultat ce temps-là ; sinon, ce n’est pas fait.</translation>
    </message>
    <message>
        <source>Listens so long for wrenches, instead of 5.</source>
        <translation>Écoute les clés ce temps-là, au lieu de 5.</translation>
    </message>
    <message>
        <source>Limit of each wait for an answer, instead of each one&apos;s own.</source>
        <translation>Limite de chaque attente d’une réponse, au lieu de celle de chacune.</translation>
    </message>
</context>
<context>
    <name>DoctorPage</name>
    <message>
        <source>Examine the workplace of %1</source>
        <translation>Examiner le poste de %1</translation>
    </message>
    <message>
        <source>Examine</source>
        <translation>Examiner</translation>
    </message>
    <message>
        <source>Ask for a tightening</source>
        <translation>Demander un serrage</translation>
    </message>
    <message>
        <source>no</source>
        <translation>non</translation>
    </message>
    <message>
        <source>and wait %1 s for it</source>
        <translation>et l’attendre %1 s</translation>
    </message>
    <message>
        <source>The line of %1 is in use (%2), and the doctor needs it for itself.</source>
        <translation>La ligne de %1 est occupée (%2), et l’examen en a besoin pour lui seul.</translation>
    </message>
    <message>
        <source>Stop what uses the line</source>
        <translation>Arrêter ce qui occupe la ligne</translation>
    </message>
    <message>
        <source>Stop it</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Stages of the examination</source>
        <translation>Étapes de l’examen</translation>
    </message>
</context>
<context>
    <name>DoctorStage</name>
    <message>
        <source>the port takes nothing</source>
        <translation>le port n’accepte rien</translation>
    </message>
</context>
<context>
    <name>DoctorTable</name>
    <message>
        <source>Putting things back as they were found</source>
        <translation>Tout est remis dans l’état trouvé</translation>
    </message>
    <message>
        <source>Examining</source>
        <translation>Examen en cours</translation>
    </message>
    <message>
        <source>Examining: %1</source>
        <translation>Examen en cours : %1</translation>
    </message>
    <message>
        <source>%1 passed, %2 failed, %3 skipped</source>
        <translation>%1 en ordre, %2 en échec, %3 omises</translation>
    </message>
    <message>
        <source>Stopped: %1</source>
        <translation>Interrompu : %1</translation>
    </message>
    <message>
        <source>Nothing is wrong: %1</source>
        <translation>Tout est en ordre : %1</translation>
    </message>
    <message>
        <source>Something is wrong: %1</source>
        <translation>Quelque chose ne va pas : %1</translation>
    </message>
    <message>
        <source>to do</source>
        <translation>à faire</translation>
    </message>
    <message>
        <source>running</source>
        <translation>en cours</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>en ordre</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>en échec</translation>
    </message>
    <message>
        <source>skipped</source>
        <translation>omise</translation>
    </message>
</context>
<context>
    <name>DoctorTextReport</name>
    <message>
        <source>sends</source>
        <translation>envoie</translation>
    </message>
    <message>
        <source>note</source>
        <translation>remarque</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>bon</translation>
    </message>
    <message>
        <source>FAILED</source>
        <translation>ÉCHEC</translation>
    </message>
    <message>
        <source>skipped</source>
        <translation>omis</translation>
    </message>
    <message>
        <source>%1 passed, %2 failed, %3 skipped</source>
        <translation>%1 réussies, %2 en échec, %3 omises</translation>
    </message>
    <message>
        <source>Interrupted: %1</source>
        <translation>Interrompu : %1</translation>
    </message>
    <message>
        <source>Nothing is wrong: %1</source>
        <translation>Tout va bien : %1</translation>
    </message>
    <message>
        <source>Something is wrong: %1</source>
        <translation>Quelque chose ne va pas : %1</translation>
    </message>
</context>
<context>
    <name>DongleStage</name>
    <message>
        <source>a dongle answers, and no other device</source>
        <translation>un adaptateur radio répond, et non un autre appareil</translation>
    </message>
    <message>
        <source>ATS to the dongle, which begins a search</source>
        <translation>ATS à l’adaptateur radio, qui commence une recherche</translation>
    </message>
    <message>
        <source>nobody answers, the line only repeats what is sent</source>
        <translation>personne ne répond, la ligne ne fait que répéter ce qui est envoyé</translation>
    </message>
    <message>
        <source>it said %1</source>
        <translation>il a dit %1</translation>
    </message>
    <message>
        <source>take the loop-back plug off, or choose the dongle&apos;s port; &quot;app_workplace ports&quot; lists the ports</source>
        <translation>retirez le bouchon de rebouclage, ou choisissez le port de l’adaptateur radio ; « app_workplace ports » liste les ports</translation>
    </message>
    <message>
        <source>another device than a dongle answers</source>
        <translation>un autre appareil qu’un adaptateur radio répond</translation>
    </message>
    <message>
        <source>choose the dongle&apos;s port; &quot;app_workplace ports&quot; lists the ports</source>
        <translation>choisissez le port de l’adaptateur radio ; « app_workplace ports » liste les ports</translation>
    </message>
    <message>
        <source>the dongle refuses to search</source>
        <translation>l’adaptateur radio refuse de chercher</translation>
    </message>
    <message>
        <source>it said &quot;%1&quot;</source>
        <translation>il a dit « %1 »</translation>
    </message>
    <message>
        <source>unplug the dongle, plug it in again and try once more</source>
        <translation>débranchez l’adaptateur radio, rebranchez-le et réessayez</translation>
    </message>
    <message>
        <source>a dongle answers; it keeps a link that is open</source>
        <translation>un adaptateur radio répond ; il garde une liaison ouverte</translation>
    </message>
    <message>
        <source>a dongle answers</source>
        <translation>un adaptateur radio répond</translation>
    </message>
</context>
<context>
    <name>DriverSettings</name>
    <message>
        <source>write &quot;%1&quot; beside &quot;driver&quot;</source>
        <translation>écrivez « %1 » à côté de « driver »</translation>
    </message>
    <message>
        <source>known are: %1</source>
        <translation>sont connus : %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no setting of the driver</source>
        <translation>« %1 » n’est pas un réglage du pilote</translation>
    </message>
</context>
<context>
    <name>GuiCommand</name>
    <message>
        <source>--%1 cannot be &quot;%2&quot;</source>
        <translation>--%1 ne peut pas être « %2 »</translation>
    </message>
    <message>
        <source>choose one of: %1</source>
        <translation>choisissez parmi : %1</translation>
    </message>
    <message>
        <source>the window takes no argument &quot;%1&quot;</source>
        <translation>la fenêtre ne prend pas d’argument « %1 »</translation>
    </message>
    <message>
        <source>see app_workplace gui --help</source>
        <translation>voir app_workplace gui --help</translation>
    </message>
    <message>
        <source>Shows the window: the work, the results, maintenance, trace and doctor.</source>
        <translation>Affiche la fenêtre : travail, résultats, maintenance, trace et diagnostic.</translation>
    </message>
    <message>
        <source>A device of the window, instead of that of --port and --serial-id. More than once: several.</source>
        <translation>Un appareil de la fenêtre, au lieu de celui de --port et --serial-id. Plusieurs fois : plusieurs.</translation>
    </message>
    <message>
        <source>Each device whose wrench is known begins to work at once.</source>
        <translation>Chaque appareil dont la clé est connue se met aussitôt au travail.</translation>
    </message>
    <message>
        <source>The page to begin with.</source>
        <translation>La première page.</translation>
    </message>
    <message>
        <source>How it looks.</source>
        <translation>Son apparence.</translation>
    </message>
    <message>
        <source>Draws the window into this PNG file and ends; no display is needed.</source>
        <translation>Dessine la fenêtre dans ce fichier PNG et se termine ; aucun écran n’est nécessaire.</translation>
    </message>
    <message>
        <source>With --screenshot and --connect: when so many results have come.</source>
        <translation>Avec --screenshot et --connect : dès que tant de résultats sont arrivés.</translation>
    </message>
    <message>
        <source>the window cannot be made</source>
        <translation>la fenêtre ne peut pas être créée</translation>
    </message>
    <message>
        <source>see the log above</source>
        <translation>voir le journal ci-dessus</translation>
    </message>
    <message>
        <source>install the packages that &quot;./run gui&quot; names</source>
        <translation>installez les paquets que « ./run gui » indique</translation>
    </message>
    <message>
        <source>the window did not come to what is to be drawn</source>
        <translation>la fenêtre n’est pas arrivée à ce qui doit être dessiné</translation>
    </message>
    <message>
        <source>the picture cannot be written to %1</source>
        <translation>l’image ne peut pas être écrite dans %1</translation>
    </message>
    <message>
        <source>look at the folder and its rights</source>
        <translation>vérifiez le dossier et ses droits</translation>
    </message>
    <message>
        <source>see that the folder can be written, or name another with --data</source>
        <translation>vérifiez que le dossier est accessible en écriture, ou indiquez-en un autre avec --data</translation>
    </message>
    <message>
        <source>how the window looks cannot be kept in %1</source>
        <translation>l’aspect de la fenêtre ne peut pas être conservé dans %1</translation>
    </message>
    <message>
        <source>how the window looked cannot be read from %1</source>
        <translation>l’aspect de la fenêtre ne peut pas être lu dans %1</translation>
    </message>
    <message>
        <source>choose theme and language anew; that replaces the file</source>
        <translation>choisissez de nouveau le thème et la langue ; cela remplace le fichier</translation>
    </message>
    <message>
        <source>say it in pixels, as 1280x800: from 640x480 to 7680x4320</source>
        <translation>indiquez-la en pixels, par exemple 1280x800 : de 640x480 à 7680x4320</translation>
    </message>
    <message>
        <source>The size of the window in pixels, 640x480 to 7680x4320; 1280x800 when not said.</source>
        <translation>La taille de la fenêtre en pixels, de 640x480 à 7680x4320 ; 1280x800 sans indication.</translation>
    </message>
</context>
<context>
    <name>HeardWrenches</name>
    <message>
        <source>the wrench %1 was heard, but the link to it did not come about</source>
        <translation>la clé %1 a été entendue, mais la liaison radio n’a pas pu être établie</translation>
    </message>
    <message>
        <source>%1 (%2 dBm)</source>
        <translation>%1 (%2 dBm)</translation>
    </message>
    <message>
        <source>no wrench was heard</source>
        <translation>aucune clé n’a été entendue</translation>
    </message>
    <message>
        <source>the wrench %1 was not heard, only %2</source>
        <translation>la clé %1 n’a pas été entendue, seulement %2</translation>
    </message>
</context>
<context>
    <name>History</name>
    <message>
        <source>Qt&apos;s driver for SQLite is not installed (Debian: libqt5sql5-sqlite)</source>
        <translation>le pilote SQLite de Qt n’est pas installé (Debian : libqt5sql5-sqlite)</translation>
    </message>
    <message>
        <source>the file %1 is not written</source>
        <translation>le fichier %1 n’est pas écrit</translation>
    </message>
    <message>
        <source>make room and check the rights of its folder, or name another file</source>
        <translation>faites de la place et vérifiez les droits de son dossier, ou indiquez un autre fichier</translation>
    </message>
    <message>
        <source>another program keeps %1 locked (%2)</source>
        <translation>un autre programme garde %1 verrouillé (%2)</translation>
    </message>
    <message>
        <source>close the program that holds it, then start again</source>
        <translation>fermez le programme qui le retient, puis recommencez</translation>
    </message>
    <message>
        <source>%1 cannot be written (%2)</source>
        <translation>%1 ne peut pas être écrit (%2)</translation>
    </message>
    <message>
        <source>give this user the right to write the file and its folder %1, or name another folder with --data</source>
        <translation>donnez à cet utilisateur le droit d’écrire le fichier et son dossier %1, ou indiquez un autre dossier avec --data</translation>
    </message>
    <message>
        <source>%1 cannot be opened (%2)</source>
        <translation>%1 ne peut pas être ouvert (%2)</translation>
    </message>
    <message>
        <source>give this user the right to write in the folder %1, or name another folder with --data</source>
        <translation>donnez à cet utilisateur le droit d’écrire dans le dossier %1, ou indiquez un autre dossier avec --data</translation>
    </message>
    <message>
        <source>there is no room for it in %1 (%2)</source>
        <translation>il n’y a pas de place pour cela dans %1 (%2)</translation>
    </message>
    <message>
        <source>make room on that disk, then start again</source>
        <translation>faites de la place sur ce disque, puis recommencez</translation>
    </message>
    <message>
        <source>the disk refuses %1 (%2)</source>
        <translation>le disque refuse %1 (%2)</translation>
    </message>
    <message>
        <source>check the room and the health of the disk that holds %1, then start again</source>
        <translation>vérifiez la place et l’état du disque qui contient %1, puis recommencez</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
    <message>
        <source>mend the cause, then start again</source>
        <translation>supprimez la cause, puis recommencez</translation>
    </message>
    <message>
        <source>the history %1 is not used, and was left as it is</source>
        <translation>l’historique %1 n’est pas utilisé et a été laissé tel quel</translation>
    </message>
    <message>
        <source>put a backup in its place, or move %1 and the files beside it that begin with its name elsewhere; docs/history.md says what can be read from them</source>
        <translation>mettez une sauvegarde à sa place, ou déplacez %1 et les fichiers voisins qui commencent par son nom ; docs/history.md dit ce qu’on peut en lire</translation>
    </message>
    <message>
        <source>the history cannot be read</source>
        <translation>l’historique ne peut pas être lu</translation>
    </message>
    <message>
        <source>the history cannot be written</source>
        <translation>l’historique ne peut pas être écrit</translation>
    </message>
    <message>
        <source>its disk has no shared memory</source>
        <translation>son disque n’a pas de mémoire partagée</translation>
    </message>
    <message>
        <source>name a folder on a local disk with --data</source>
        <translation>indiquez avec --data un dossier sur un disque local</translation>
    </message>
    <message>
        <source>the history cannot be brought up to date</source>
        <translation>l’historique ne peut pas être mis à jour</translation>
    </message>
    <message>
        <source>the history cannot be begun</source>
        <translation>l’historique ne peut pas être créé</translation>
    </message>
    <message>
        <source>make room and give this user the right to write in the folder %1, or name another folder with --data</source>
        <translation>faites de la place et donnez à cet utilisateur le droit d’écrire dans le dossier %1, ou indiquez un autre dossier avec --data</translation>
    </message>
    <message>
        <source>the folder %1 cannot be made</source>
        <translation>le dossier %1 ne peut pas être créé</translation>
    </message>
    <message>
        <source>the history %1 cannot be read</source>
        <translation>l’historique %1 ne peut pas être lu</translation>
    </message>
    <message>
        <source>its beginning is damaged</source>
        <translation>son début est endommagé</translation>
    </message>
    <message>
        <source>another program has made it</source>
        <translation>un autre programme l’a créé</translation>
    </message>
    <message>
        <source>name another folder with --data</source>
        <translation>indiquez un autre dossier avec --data</translation>
    </message>
    <message>
        <source>a newer program has written it (version %1; this one knows %2)</source>
        <translation>un programme plus récent l’a écrit (version %1 ; celui-ci connaît %2)</translation>
    </message>
    <message>
        <source>use the newer program, or name another folder with --data</source>
        <translation>utilisez le programme plus récent, ou indiquez un autre dossier avec --data</translation>
    </message>
    <message>
        <source>an older program has written it (version %1)</source>
        <translation>un programme plus ancien l’a écrit (version %1)</translation>
    </message>
    <message>
        <source>begin a session once; it brings the file up to date</source>
        <translation>lancez une session une fois ; elle met le fichier à jour</translation>
    </message>
    <message>
        <source>it is damaged: %1</source>
        <translation>il est endommagé : %1</translation>
    </message>
    <message>
        <source>the result cannot be stored</source>
        <translation>le résultat ne peut pas être enregistré</translation>
    </message>
    <message>
        <source>the file %1 is there already</source>
        <translation>le fichier %1 existe déjà</translation>
    </message>
    <message>
        <source>replace it, or name another one</source>
        <translation>remplacez-le, ou nommez-en un autre</translation>
    </message>
    <message>
        <source>check the file, its folder and the rights of both, or name another folder with --data</source>
        <translation>vérifiez le fichier, son dossier et les droits des deux, ou nommez un autre dossier avec --data</translation>
    </message>
</context>
<context>
    <name>HistoryTable</name>
    <message>
        <source>good</source>
        <translation>bon</translation>
    </message>
    <message>
        <source>not good</source>
        <translation>pas bon</translation>
    </message>
</context>
<context>
    <name>JsonObjectFile</name>
    <message>
        <source>it holds no JSON object</source>
        <translation>il ne contient pas d’objet JSON</translation>
    </message>
    <message>
        <source>it is longer than %1 bytes</source>
        <translation>il dépasse %1 octets</translation>
    </message>
</context>
<context>
    <name>Language</name>
    <message>
        <source>there is no language &quot;%1&quot;</source>
        <translation>la langue « %1 » n’existe pas</translation>
    </message>
    <message>
        <source>choose one of: %1</source>
        <translation>choisissez parmi : %1</translation>
    </message>
</context>
<context>
    <name>LineObserver</name>
    <message>
        <source>the line said &quot;%1&quot;</source>
        <translation>la ligne a dit « %1 »</translation>
    </message>
</context>
<context>
    <name>LineStage</name>
    <message>
        <source>the line takes frames, and text comes back</source>
        <translation>la ligne accepte des trames, et du texte revient</translation>
    </message>
    <message>
        <source>ATH and ATS to the dongle, which end an open link and begin a search</source>
        <translation>ATH et ATS à l’adaptateur radio, qui ferment une liaison ouverte et commencent une recherche</translation>
    </message>
    <message>
        <source>text comes back</source>
        <translation>du texte revient</translation>
    </message>
    <message>
        <source>what comes back is no text; tries other speeds: %1</source>
        <translation>ce qui revient n’est pas du texte ; essai d’autres vitesses : %1</translation>
    </message>
    <message>
        <source>nothing comes back; tries other speeds: %1</source>
        <translation>rien ne revient ; essai d’autres vitesses : %1</translation>
    </message>
    <message>
        <source>the dongle answers at another speed: %1</source>
        <translation>l’adaptateur radio répond à une autre vitesse : %1</translation>
    </message>
    <message>
        <source>it said %1 there</source>
        <translation>il y a dit %1</translation>
    </message>
    <message>
        <source>set &quot;baudRate&quot; in the configuration file: &quot;driver&quot;: {&quot;baudRate&quot;: %1}</source>
        <translation>réglez « baudRate » dans le fichier de configuration : &quot;driver&quot;: {&quot;baudRate&quot;: %1}</translation>
    </message>
    <message>
        <source>another device than a dongle answers, at another speed: %1</source>
        <translation>un autre appareil qu’un adaptateur radio répond, à une autre vitesse : %1</translation>
    </message>
    <message>
        <source>choose the dongle&apos;s port; &quot;app_workplace ports&quot; lists the ports</source>
        <translation>choisissez le port de l’adaptateur radio ; « app_workplace ports » liste les ports</translation>
    </message>
    <message>
        <source>what comes back is no text, at none of the common speeds</source>
        <translation>ce qui revient n’est du texte à aucune des vitesses courantes</translation>
    </message>
    <message>
        <source>the other end has another format, or the line is disturbed</source>
        <translation>l’autre bout a un autre format, ou la ligne est perturbée</translation>
    </message>
    <message>
        <source>set &quot;baudRate&quot;, &quot;dataBits&quot;, &quot;parity&quot; and &quot;stopBits&quot; in the configuration file to those of the dongle, and check the cable</source>
        <translation>réglez « baudRate », « dataBits », « parity » et « stopBits » dans le fichier de configuration sur ceux de l’adaptateur radio, et vérifiez le câble</translation>
    </message>
    <message>
        <source>nothing answers on the port</source>
        <translation>rien ne répond sur le port</translation>
    </message>
    <message>
        <source>ATH and ATS were sent at each speed, and nothing came back</source>
        <translation>ATH et ATS ont été envoyés à chaque vitesse, et rien n’est revenu</translation>
    </message>
    <message>
        <source>choose the dongle&apos;s port (&quot;app_workplace ports&quot; lists the ports), and check the dongle&apos;s power and cable</source>
        <translation>choisissez le port de l’adaptateur radio (« app_workplace ports » liste les ports), et vérifiez son alimentation et son câble</translation>
    </message>
</context>
<context>
    <name>LineState</name>
    <message>
        <source>open</source>
        <translation>ouverte</translation>
    </message>
    <message>
        <source>closed</source>
        <translation>fermée</translation>
    </message>
    <message>
        <source>lost</source>
        <translation>perdue</translation>
    </message>
    <message>
        <source>no answer</source>
        <translation>pas de réponse</translation>
    </message>
    <message>
        <source>no link</source>
        <translation>pas de liaison</translation>
    </message>
</context>
<context>
    <name>LinkBar</name>
    <message>
        <source>Connect</source>
        <translation>Connecter</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>Déconnecter</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
</context>
<context>
    <name>LinkStage</name>
    <message>
        <source>the radio link to the wrench opens</source>
        <translation>la liaison radio avec la clé s’ouvre</translation>
    </message>
    <message>
        <source>ATD and the wrench&apos;s address to the dongle, and ATH behind it, as a session does</source>
        <translation>ATD et l’adresse de la clé à l’adaptateur radio, puis ATH, comme le fait une session</translation>
    </message>
    <message>
        <source>a link is open already</source>
        <translation>une liaison est déjà ouverte</translation>
    </message>
    <message>
        <source>the link to the wrench %1 opens</source>
        <translation>la liaison avec la clé %1 s’ouvre</translation>
    </message>
    <message>
        <source>the radio link to the wrench %1 does not open</source>
        <translation>la liaison radio avec la clé %1 ne s’ouvre pas</translation>
    </message>
    <message>
        <source>the dongle did not answer</source>
        <translation>l’adaptateur radio n’a pas répondu</translation>
    </message>
    <message>
        <source>the dongle said only %1</source>
        <translation>l’adaptateur radio a seulement dit %1</translation>
    </message>
    <message>
        <source>unplug the dongle, plug it in again and try once more</source>
        <translation>débranchez l’adaptateur radio, rebranchez-le et réessayez</translation>
    </message>
    <message>
        <source>the radio link to the wrench %1 is refused</source>
        <translation>la liaison radio avec la clé %1 est refusée</translation>
    </message>
    <message>
        <source>the dongle said &quot;%1&quot;</source>
        <translation>l’adaptateur radio a dit « %1 »</translation>
    </message>
    <message>
        <source>switch the wrench off and on, bring it near, and see that no other dongle is linked to it</source>
        <translation>éteignez et rallumez la clé, rapprochez-la, et assurez-vous qu’aucun autre adaptateur radio n’est lié à elle</translation>
    </message>
    <message>
        <source>the dongle has linked another wrench than %1</source>
        <translation>l’adaptateur radio a lié une autre clé que %1</translation>
    </message>
    <message>
        <source>%1 was to be dialled, and the dongle said %2</source>
        <translation>%1 devait être appelé, et l’adaptateur radio a dit %2</translation>
    </message>
</context>
<context>
    <name>LockCard</name>
    <message>
        <source>Lock: not known</source>
        <translation>Verrou : inconnu</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>Verrouillée</translation>
    </message>
    <message>
        <source>Unlocked</source>
        <translation>Déverrouillée</translation>
    </message>
    <message>
        <source>Lock</source>
        <translation>Verrouiller</translation>
    </message>
    <message>
        <source>Unlock</source>
        <translation>Déverrouiller</translation>
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
        <translation>aucun fichier de configuration</translation>
    </message>
    <message>
        <source>configuration file %1</source>
        <translation>fichier de configuration %1</translation>
    </message>
    <message>
        <source>%1 ended after %2 s with exit status %3</source>
        <translation>%1 s’est terminé après %2 s avec le code de retour %3</translation>
    </message>
    <message>
        <source>Work</source>
        <translation>Travail</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Connexion</translation>
    </message>
    <message>
        <source>Results</source>
        <translation>Résultats</translation>
    </message>
    <message>
        <source>Maintenance</source>
        <translation>Maintenance</translation>
    </message>
    <message>
        <source>Trace</source>
        <translation>Trace</translation>
    </message>
    <message>
        <source>Doctor</source>
        <translation>Diagnostic</translation>
    </message>
    <message>
        <source>%1 – %2 – Workplace</source>
        <translation>%1 – %2 – Poste de serrage</translation>
    </message>
    <message>
        <source>%1 – Workplace</source>
        <translation>%1 – Poste de serrage</translation>
    </message>
</context>
<context>
    <name>NumberOptions</name>
    <message>
        <source>--%1 takes %2, not &quot;%3&quot;</source>
        <translation>--%1 attend %2, pas « %3 »</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <translation>un nombre entier de %1 à %2</translation>
    </message>
    <message>
        <source>seconds from %1 to %2</source>
        <translation>des secondes de %1 à %2</translation>
    </message>
</context>
<context>
    <name>PanelPage</name>
    <message>
        <source>Panel of</source>
        <translation>Panneau de</translation>
    </message>
    <message>
        <source>It comes with the first scan or connection, which loads the plugin and opens the line.</source>
        <translation>Il vient avec la première recherche ou connexion, qui charge le module et ouvre la ligne.</translation>
    </message>
    <message>
        <source>The maintenance panel is not there yet</source>
        <translation>Le panneau de maintenance n’est pas encore là</translation>
    </message>
    <message>
        <source>Connect a wrench</source>
        <translation>Connecter une clé</translation>
    </message>
</context>
<context>
    <name>PanelView</name>
    <message>
        <source>there is no maintenance panel for this device</source>
        <translation>il n’y a pas de panneau de maintenance pour cet appareil</translation>
    </message>
    <message>
        <source>its plugin %1 brings none</source>
        <translation>son module %1 n’en apporte pas</translation>
    </message>
    <message>
        <source>the maintenance panel of this device cannot be shown</source>
        <translation>le panneau de maintenance de cet appareil ne peut pas être affiché</translation>
    </message>
    <message>
        <source>mend the panel&apos;s document in the plugin %1</source>
        <translation>corrigez le document du panneau dans le module %1</translation>
    </message>
    <message>
        <source>its root is a %1, which is nothing to be shown</source>
        <translation>sa racine est un %1, ce qui ne s’affiche pas</translation>
    </message>
</context>
<context>
    <name>Parameters</name>
    <message>
        <source>true or false</source>
        <translation>true ou false</translation>
    </message>
    <message>
        <source>a whole number</source>
        <translation>un nombre entier</translation>
    </message>
    <message>
        <source>a whole number, 0 or more</source>
        <translation>un nombre entier, 0 ou plus</translation>
    </message>
    <message>
        <source>a text (escapes: \r \n \t \\ \xHH)</source>
        <translation>un texte (caractères spéciaux : \r \n \t \\ \xHH)</translation>
    </message>
    <message>
        <source>a JSON object</source>
        <translation>un objet JSON</translation>
    </message>
    <message>
        <source>a JSON array</source>
        <translation>un tableau JSON</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not of the form name=value</source>
        <translation>« %1 » n’a pas la forme nom=valeur</translation>
    </message>
    <message>
        <source>the parameter &quot;%1&quot; is given twice</source>
        <translation>le paramètre « %1 » est indiqué deux fois</translation>
    </message>
    <message>
        <source>the command &quot;%1&quot; has no parameter &quot;%2&quot;; it has: %3</source>
        <translation>la commande « %1 » n’a pas de paramètre « %2 » ; elle a : %3</translation>
    </message>
    <message>
        <source>the parameter &quot;%1&quot; of &quot;%2&quot; takes %3, not &quot;%4&quot;</source>
        <translation>le paramètre « %1 » de « %2 » attend %3, pas « %4 »</translation>
    </message>
    <message>
        <source>the command &quot;%1&quot; needs the parameter &quot;%2&quot;: %3=%4</source>
        <translation>la commande « %1 » a besoin du paramètre « %2 » : %3=%4</translation>
    </message>
</context>
<context>
    <name>PluginsStage</name>
    <message>
        <source>the libraries fit, the plugins load and make their devices</source>
        <translation>les bibliothèques conviennent, les modules se chargent et fournissent leurs appareils</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
    <message>
        <source>the driver plugin cannot be used here</source>
        <translation>le module pilote n’est pas utilisable ici</translation>
    </message>
    <message>
        <source>the device plugin cannot be used here</source>
        <translation>le module d’appareil n’est pas utilisable ici</translation>
    </message>
    <message>
        <source>it has no command &quot;%1&quot;</source>
        <translation>il n’a pas de commande « %1 »</translation>
    </message>
    <message>
        <source>name the folder of the right plugins with --plugins</source>
        <translation>indiquez le dossier des bons modules avec --plugins</translation>
    </message>
    <message>
        <source>%1; Qt %2</source>
        <translation>%1 ; Qt %2</translation>
    </message>
</context>
<context>
    <name>PortStage</name>
    <message>
        <source>the port exists, is permitted and is free</source>
        <translation>le port existe, est permis et libre</translation>
    </message>
    <message>
        <source>the port could not be opened</source>
        <translation>le port n’a pas pu être ouvert</translation>
    </message>
    <message>
        <source>the driver did not say why</source>
        <translation>le pilote n’a pas dit pourquoi</translation>
    </message>
    <message>
        <source>check the port and the cable; &quot;app_workplace ports&quot; lists the ports</source>
        <translation>vérifiez le port et le câble ; « app_workplace ports » liste les ports</translation>
    </message>
    <message>
        <source>%1 is open, for this program alone</source>
        <translation>%1 est ouvert, pour ce programme seul</translation>
    </message>
</context>
<context>
    <name>PortsCommand</name>
    <message>
        <source>the list of ports takes no argument &quot;%1&quot;</source>
        <translation>la liste des ports n’accepte pas l’argument « %1 »</translation>
    </message>
    <message>
        <source>see app_workplace ports --help</source>
        <translation>voir app_workplace ports --help</translation>
    </message>
    <message>
        <source>Lists the serial ports of this machine.</source>
        <translation>Liste les ports série de cette machine.</translation>
    </message>
    <message>
        <source>port</source>
        <translation>port</translation>
    </message>
    <message>
        <source>usable</source>
        <translation>utilisable</translation>
    </message>
    <message>
        <source>lasting name</source>
        <translation>nom durable</translation>
    </message>
    <message>
        <source>description</source>
        <translation>description</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>oui</translation>
    </message>
    <message>
        <source>no right</source>
        <translation>aucun droit</translation>
    </message>
    <message>
        <source>This machine has no serial port; plug the adapter in and call this again.</source>
        <translation>Cette machine n’a pas de port série ; branchez l’adaptateur et recommencez.</translation>
    </message>
</context>
<context>
    <name>Problem</name>
    <message>
        <source>  why: %1</source>
        <translation>  cause :  %1</translation>
    </message>
    <message>
        <source>  do:  %1</source>
        <translation>  remède : %1</translation>
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
        <translation>Programmes</translation>
    </message>
    <message>
        <source>They are read from the wrench when it is connected.</source>
        <translation>Ils sont lus dans la clé à la connexion.</translation>
    </message>
    <message>
        <source>No programs</source>
        <translation>Aucun programme</translation>
    </message>
</context>
<context>
    <name>ProgramsStage</name>
    <message>
        <source>the programs of the wrench can be read</source>
        <translation>les programmes de la clé peuvent être lus</translation>
    </message>
    <message>
        <source>IDLE, TR:C and TR:N to the wrench: its first program is the current one afterwards</source>
        <translation>IDLE, TR:C et TR:N à la clé : son premier programme est ensuite le programme actif</translation>
    </message>
    <message>
        <source>the device plugin has no command &quot;%1&quot;</source>
        <translation>le module d’appareil n’a pas de commande « %1 »</translation>
    </message>
    <message>
        <source>name another folder with --plugins</source>
        <translation>indiquez un autre dossier avec --plugins</translation>
    </message>
    <message>
        <source>1 program</source>
        <translation>1 programme</translation>
    </message>
    <message>
        <source>%1 programs</source>
        <translation>%1 programmes</translation>
    </message>
    <message>
        <source>the device plugin refuses to read the programs</source>
        <translation>le module d’appareil refuse de lire les programmes</translation>
    </message>
    <message>
        <source>the wrench did not answer</source>
        <translation>la clé n’a pas répondu</translation>
    </message>
    <message>
        <source>the last that was said is &quot;%1&quot;</source>
        <translation>la dernière chose dite est « %1 »</translation>
    </message>
    <message>
        <source>the programs cannot be read while a tightening is running</source>
        <translation>les programmes ne peuvent pas être lus pendant un serrage</translation>
    </message>
    <message>
        <source>finish the tightening, or wait until it is over, and try again</source>
        <translation>terminez le serrage, ou attendez sa fin, et réessayez</translation>
    </message>
    <message>
        <source>the programs could be read only in part: %1</source>
        <translation>les programmes n’ont pu être lus qu’en partie : %1</translation>
    </message>
    <message>
        <source>bring the wrench nearer and try again</source>
        <translation>rapprochez la clé et réessayez</translation>
    </message>
    <message>
        <source>the programs of the wrench cannot be read</source>
        <translation>les programmes de la clé ne peuvent pas être lus</translation>
    </message>
    <message>
        <source>bring the wrench nearer and try again; see that the wrench holds a program</source>
        <translation>rapprochez la clé et réessayez ; vérifiez que la clé contient un programme</translation>
    </message>
</context>
<context>
    <name>RangeStage</name>
    <message>
        <source>the wrench is in range, once, with a good signal</source>
        <translation>la clé est à portée, une seule fois, avec un bon signal</translation>
    </message>
    <message>
        <source>ATH to the dongle, which ends the search</source>
        <translation>ATH à l’adaptateur radio, qui termine la recherche</translation>
    </message>
    <message>
        <source>a dongle that keeps a link does not search, and does not say to which wrench the link is</source>
        <translation>un adaptateur radio qui garde une liaison ne cherche pas, et ne dit pas à quelle clé il est lié</translation>
    </message>
    <message>
        <source>switch the wrench on and bring it near the dongle</source>
        <translation>allumez la clé et rapprochez-la de l’adaptateur radio</translation>
    </message>
    <message>
        <source>no wrench is in range</source>
        <translation>aucune clé n’est à portée</translation>
    </message>
    <message>
        <source>which wrench is to be examined is not said, and several are in range</source>
        <translation>la clé à examiner n’est pas indiquée, et plusieurs sont à portée</translation>
    </message>
    <message>
        <source>the wrench %1 is not in range</source>
        <translation>la clé %1 n’est pas à portée</translation>
    </message>
    <message>
        <source>no wrench was heard</source>
        <translation>aucune clé n’a été entendue</translation>
    </message>
    <message>
        <source>only these were heard: %1</source>
        <translation>seules celles-ci ont été entendues : %1</translation>
    </message>
    <message>
        <source>%1, or check the serial number</source>
        <translation>%1, ou vérifiez le numéro de série</translation>
    </message>
    <message>
        <source>%1 wrenches answer to the serial number %2</source>
        <translation>%1 clés répondent au numéro de série %2</translation>
    </message>
    <message>
        <source>switch off all but one of them, and have the others given serial numbers of their own</source>
        <translation>éteignez-les toutes sauf une, et faites donner aux autres leurs propres numéros de série</translation>
    </message>
    <message>
        <source>the signal of the wrench %1 is weak: %2 dBm</source>
        <translation>le signal de la clé %1 est faible : %2 dBm</translation>
    </message>
    <message>
        <source>below %1 dBm frames get lost</source>
        <translation>sous %1 dBm, des trames se perdent</translation>
    </message>
    <message>
        <source>bring wrench and dongle nearer to each other, with nothing of metal between them</source>
        <translation>rapprochez la clé et l’adaptateur radio, sans métal entre les deux</translation>
    </message>
    <message>
        <source>the wrench %1 is heard with %2 dBm</source>
        <translation>la clé %1 est entendue à %2 dBm</translation>
    </message>
</context>
<context>
    <name>ResultCard</name>
    <message>
        <source>GOOD</source>
        <translation>BON</translation>
    </message>
    <message>
        <source>NOT GOOD</source>
        <translation>PAS BON</translation>
    </message>
    <message>
        <source>Connect to a wrench first.</source>
        <translation>Connectez d’abord une clé.</translation>
    </message>
    <message>
        <source>Tighten: the result appears here.</source>
        <translation>Serrez : le résultat s’affiche ici.</translation>
    </message>
    <message>
        <source>As soon as the wrench is ready, tighten.</source>
        <translation>Dès que la clé est prête, serrez.</translation>
    </message>
    <message>
        <source>%1, torque %2 %3</source>
        <translation>%1, couple %2 %3</translation>
    </message>
    <message>
        <source>No result yet</source>
        <translation>Pas encore de résultat</translation>
    </message>
    <message>
        <source>angle</source>
        <translation>angle</translation>
    </message>
    <message>
        <source>direction</source>
        <translation>sens</translation>
    </message>
    <message>
        <source>reading</source>
        <translation>mesure</translation>
    </message>
    <message>
        <source>program</source>
        <translation>programme</translation>
    </message>
    <message>
        <source>at</source>
        <translation>à</translation>
    </message>
</context>
<context>
    <name>ResultDetails</name>
    <message>
        <source>torque</source>
        <translation>couple</translation>
    </message>
    <message>
        <source>direction</source>
        <translation>sens</translation>
    </message>
    <message>
        <source>status of the torque</source>
        <translation>état du couple</translation>
    </message>
    <message>
        <source>angle from snug torque</source>
        <translation>angle depuis le couple d&apos;approche</translation>
    </message>
    <message>
        <source>status of the angle</source>
        <translation>état de l&apos;angle</translation>
    </message>
    <message>
        <source>number of the reading</source>
        <translation>numéro de la mesure</translation>
    </message>
    <message>
        <source>status of the reading</source>
        <translation>état de la mesure</translation>
    </message>
    <message>
        <source>number of the chunk of input</source>
        <translation>numéro du bloc reçu</translation>
    </message>
    <message>
        <source>program</source>
        <translation>programme</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>unité</translation>
    </message>
    <message>
        <source>target angle</source>
        <translation>angle cible</translation>
    </message>
    <message>
        <source>target torque, in hundredths</source>
        <translation>couple cible, en centièmes</translation>
    </message>
    <message>
        <source>snug torque</source>
        <translation>couple d&apos;approche</translation>
    </message>
    <message>
        <source>readings</source>
        <translation>mesures</translation>
    </message>
    <message>
        <source>(an empty text)</source>
        <translation>(un texte vide)</translation>
    </message>
    <message>
        <source>(not received)</source>
        <translation>(non reçu)</translation>
    </message>
    <message>
        <source>line as received</source>
        <translation>ligne telle que reçue</translation>
    </message>
    <message>
        <source>(not known)</source>
        <translation>(inconnu)</translation>
    </message>
    <message>
        <source>first after a reconnection</source>
        <translation>premier après une reconnexion</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>oui</translation>
    </message>
    <message>
        <source>no</source>
        <translation>non</translation>
    </message>
    <message>
        <source>counter</source>
        <translation>compteur</translation>
    </message>
    <message>
        <source>last number before it</source>
        <translation>dernier numéro avant</translation>
    </message>
    <message>
        <source>number behind it</source>
        <translation>numéro suivant</translation>
    </message>
    <message>
        <source>repeats the entry</source>
        <translation>répète l&apos;entrée</translation>
    </message>
    <message>
        <source>wrench</source>
        <translation>clé</translation>
    </message>
    <message>
        <source>port</source>
        <translation>port</translation>
    </message>
    <message>
        <source>arrived</source>
        <translation>arrivée</translation>
    </message>
    <message>
        <source>entry</source>
        <translation>entrée</translation>
    </message>
    <message>
        <source>preset: %1</source>
        <translation>préréglage : %1</translation>
    </message>
    <message>
        <source>A gap</source>
        <translation>Une lacune</translation>
    </message>
    <message>
        <source>A repeated reading</source>
        <translation>Une mesure répétée</translation>
    </message>
    <message>
        <source>A good result</source>
        <translation>Un bon résultat</translation>
    </message>
    <message>
        <source>A result that is not good</source>
        <translation>Un résultat qui n&apos;est pas bon</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>ResultsCommand</name>
    <message>
        <source>the list of results takes no argument &quot;%1&quot;</source>
        <translation>la liste des résultats n’accepte pas l’argument « %1 »</translation>
    </message>
    <message>
        <source>--status takes ok or nok, not &quot;%1&quot;</source>
        <translation>--status attend ok ou nok, pas « %1 »</translation>
    </message>
    <message>
        <source>the file &quot;%1&quot; does not say how to write it</source>
        <translation>le fichier « %1 » ne dit pas sous quelle forme l’écrire</translation>
    </message>
    <message>
        <source>end its name with .csv or .jsonl</source>
        <translation>terminez son nom par .csv ou .jsonl</translation>
    </message>
    <message>
        <source>--export and --watch do not go together</source>
        <translation>--export et --watch ne vont pas ensemble</translation>
    </message>
    <message>
        <source>watch with --json, or export when the session is over</source>
        <translation>suivez avec --json, ou exportez une fois la session terminée</translation>
    </message>
    <message>
        <source>Lists, exports or follows the stored results.</source>
        <translation>Liste, exporte ou suit les résultats enregistrés.</translation>
    </message>
    <message>
        <source>Only what arrived then or later: 2026-11-21 or 2026-11-21T08:30.</source>
        <translation>Seulement ce qui est arrivé à partir de là : 2026-11-21 ou 2026-11-21T08:30.</translation>
    </message>
    <message>
        <source>Only what arrived before then; a date alone: up to its end.</source>
        <translation>Seulement ce qui est arrivé avant ; une date seule : jusqu’à sa fin.</translation>
    </message>
    <message>
        <source>Only results of this program.</source>
        <translation>Seulement les résultats de ce programme.</translation>
    </message>
    <message>
        <source>Only good ones, or only the others.</source>
        <translation>Seulement les bons, ou seulement les autres.</translation>
    </message>
    <message>
        <source>Only the last so many results.</source>
        <translation>Seulement autant de derniers résultats.</translation>
    </message>
    <message>
        <source>Writes them into a file, .csv or .jsonl.</source>
        <translation>Les écrit dans un fichier, .csv ou .jsonl.</translation>
    </message>
    <message>
        <source>Goes on with what a running session stores, until Ctrl-C.</source>
        <translation>Continue avec ce qu’enregistre une session en cours, jusqu’à Ctrl-C.</translation>
    </message>
    <message>
        <source>Nothing is stored yet: there is no %1.</source>
        <translation>Rien n’est encore enregistré : %1 n’existe pas.</translation>
    </message>
    <message>
        <source>there is nothing to export</source>
        <translation>il n’y a rien à exporter</translation>
    </message>
    <message>
        <source>Interrupted: %1 is not written.</source>
        <translation>Interrompu : %1 n’est pas écrit.</translation>
    </message>
    <message>
        <source>--%1 takes a date or a date and a time, not &quot;%2&quot;</source>
        <translation>--%1 attend une date, avec ou sans heure, pas « %2 »</translation>
    </message>
    <message>
        <source>write 2026-11-21 or 2026-11-21T08:30:15; local time unless Z or +01:00 follows</source>
        <translation>écrivez 2026-11-21 ou 2026-11-21T08:30:15 ; heure locale sauf si Z ou +01:00 suit</translation>
    </message>
</context>
<context>
    <name>ResultsExport</name>
    <message>
        <source>Export what is listed</source>
        <translation>Exporter ce qui est listé</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>for spreadsheets (.csv)</source>
        <translation>pour tableurs (.csv)</translation>
    </message>
    <message>
        <source>for programs (.jsonl)</source>
        <translation>pour programmes (.jsonl)</translation>
    </message>
    <message>
        <source>Writing … %1 %</source>
        <translation>Écriture … %1 %</translation>
    </message>
    <message>
        <source>Stopped; nothing was written.</source>
        <translation>Arrêté ; rien n&apos;a été écrit.</translation>
    </message>
    <message>
        <source>Written: %1</source>
        <translation>Écrit : %1</translation>
    </message>
    <message>
        <source>Replace the file</source>
        <translation>Remplacer le fichier</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>ResultsFilters</name>
    <message>
        <source>all</source>
        <translation>tout</translation>
    </message>
    <message>
        <source>today</source>
        <translation>aujourd&apos;hui</translation>
    </message>
    <message>
        <source>yesterday</source>
        <translation>hier</translation>
    </message>
    <message>
        <source>last 7 days</source>
        <translation>7 derniers jours</translation>
    </message>
    <message>
        <source>last 30 days</source>
        <translation>30 derniers jours</translation>
    </message>
    <message>
        <source>from … to …</source>
        <translation>de … à …</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Heure</translation>
    </message>
    <message>
        <source>Wrench</source>
        <translation>Clé</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>Programme</translation>
    </message>
    <message>
        <source>Verdict</source>
        <translation>Verdict</translation>
    </message>
    <message>
        <source>good</source>
        <translation>bon</translation>
    </message>
    <message>
        <source>not good</source>
        <translation>pas bon</translation>
    </message>
    <message>
        <source>Let all through</source>
        <translation>Tout laisser passer</translation>
    </message>
    <message>
        <source>Export …</source>
        <translation>Exporter …</translation>
    </message>
    <message>
        <source>From</source>
        <translation>De</translation>
    </message>
    <message>
        <source>2026-11-21 or 2026-11-21 08:30</source>
        <translation>2026-11-21 ou 2026-11-21 08:30</translation>
    </message>
    <message>
        <source>To</source>
        <translation>À</translation>
    </message>
    <message>
        <source>That is no date, and no date and time; it is left out.</source>
        <translation>Ce n&apos;est ni une date ni une date avec heure ; c&apos;est ignoré.</translation>
    </message>
</context>
<context>
    <name>ResultsPage</name>
    <message>
        <source>time</source>
        <translation>heure</translation>
    </message>
    <message>
        <source>wrench</source>
        <translation>clé</translation>
    </message>
    <message>
        <source>program</source>
        <translation>programme</translation>
    </message>
    <message>
        <source>torque</source>
        <translation>couple</translation>
    </message>
    <message>
        <source>direction</source>
        <translation>sens</translation>
    </message>
    <message>
        <source>angle (°)</source>
        <translation>angle (°)</translation>
    </message>
    <message>
        <source>reading</source>
        <translation>mesure</translation>
    </message>
    <message>
        <source>status</source>
        <translation>état</translation>
    </message>
    <message>
        <source>verdict</source>
        <translation>verdict</translation>
    </message>
    <message>
        <source>Results</source>
        <translation>Résultats</translation>
    </message>
    <message>
        <source>Let more through with the filters above.</source>
        <translation>Laissez passer davantage avec les filtres ci-dessus.</translation>
    </message>
    <message>
        <source>Each result of a session is stored in %1.</source>
        <translation>Chaque résultat d&apos;une session est enregistré dans %1.</translation>
    </message>
    <message>
        <source>No stored result is like that.</source>
        <translation>Aucun résultat enregistré n&apos;est ainsi.</translation>
    </message>
    <message>
        <source>Nothing is stored yet.</source>
        <translation>Rien n&apos;est encore enregistré.</translation>
    </message>
    <message>
        <source>The list is being made …</source>
        <translation>La liste se prépare …</translation>
    </message>
    <message>
        <source>%1 new</source>
        <translation>%1 nouveaux</translation>
    </message>
</context>
<context>
    <name>ResultsReport</name>
    <message>
        <source>good</source>
        <translation>conforme</translation>
    </message>
    <message>
        <source>NOT GOOD</source>
        <translation>NON CONFORME</translation>
    </message>
    <message>
        <source>Results: %1, good: %2, not good: %3, gaps: %4, repeated: %5</source>
        <translation>Résultats : %1, conformes : %2, non conformes : %3, lacunes : %4, répétés : %5</translation>
    </message>
    <message>
        <source>%1; written to %2</source>
        <translation>%1 ; écrit dans %2</translation>
    </message>
    <message>
        <source>time</source>
        <translation>heure</translation>
    </message>
    <message>
        <source>wrench</source>
        <translation>clé</translation>
    </message>
    <message>
        <source>torque</source>
        <translation>couple</translation>
    </message>
    <message>
        <source>status</source>
        <translation>état</translation>
    </message>
    <message>
        <source>direction</source>
        <translation>sens</translation>
    </message>
    <message>
        <source>angle</source>
        <translation>angle</translation>
    </message>
    <message>
        <source>reading</source>
        <translation>mesure</translation>
    </message>
    <message>
        <source>program</source>
        <translation>programme</translation>
    </message>
    <message>
        <source>repeated after a reconnection, stored once (entry %1)</source>
        <translation>répété après une reconnexion, enregistré une fois (entrée %1)</translation>
    </message>
    <message>
        <source>gap: the count of readings fell back from %1 to %2; how many are missing cannot be told</source>
        <translation>lacune : le compteur de mesures est retombé de %1 à %2 ; impossible de dire combien manquent</translation>
    </message>
    <message>
        <source>gap: of the input, the chunks %1 to %2 were not heard; results may be missing</source>
        <translation>lacune : les fragments %1 à %2 reçus n’ont pas été entendus ; des résultats peuvent manquer</translation>
    </message>
    <message>
        <source>gap: reading %1 is missing</source>
        <translation>lacune : la mesure %1 manque</translation>
    </message>
    <message>
        <source>gap: %1 readings are missing, %2 to %3</source>
        <translation>lacune : %1 mesures manquent, %2 à %3</translation>
    </message>
</context>
<context>
    <name>ResultsStage</name>
    <message>
        <source>a tightening arrives as a result</source>
        <translation>un serrage arrive comme résultat</translation>
    </message>
    <message>
        <source>DT:1, SC:TL:2 and RE:1 to the wrench, which reports its results from now on, and DT:0, which unlocks it; the lock is put back at the end</source>
        <translation>DT:1, SC:TL:2 et RE:1 à la clé, qui transmet désormais ses résultats, et DT:0, qui la déverrouille ; le verrou est remis à la fin</translation>
    </message>
    <message>
        <source>not asked for: with --wait-result 60 you are asked to tighten once</source>
        <translation>non demandé : avec --wait-result 60, un serrage vous est demandé</translation>
    </message>
    <message>
        <source>the device plugin lacks the command &quot;%1&quot; or &quot;%2&quot;</source>
        <translation>il manque au module d’appareil la commande « %1 » ou « %2 »</translation>
    </message>
    <message>
        <source>name another folder with --plugins</source>
        <translation>indiquez un autre dossier avec --plugins</translation>
    </message>
    <message>
        <source>the wrench does not take its configuration</source>
        <translation>la clé n’accepte pas sa configuration</translation>
    </message>
    <message>
        <source>it did not answer</source>
        <translation>elle n’a pas répondu</translation>
    </message>
    <message>
        <source>the last that was said is &quot;%1&quot;</source>
        <translation>la dernière chose dite est « %1 »</translation>
    </message>
    <message>
        <source>bring the wrench nearer and try again</source>
        <translation>rapprochez la clé et réessayez</translation>
    </message>
    <message>
        <source>the wrench is locked, and a locked wrench gives no result</source>
        <translation>la clé est verrouillée, et une clé verrouillée ne donne pas de résultat</translation>
    </message>
    <message>
        <source>it was unlocked with DT:0 and says that it is locked all the same</source>
        <translation>elle a été déverrouillée avec DT:0 et se dit pourtant verrouillée</translation>
    </message>
    <message>
        <source>see who else locks it: another program, or a key on the wrench</source>
        <translation>cherchez ce qui la verrouille : un autre programme, ou une touche de la clé</translation>
    </message>
    <message>
        <source>the wrench does not tell its lock any more</source>
        <translation>la clé n’indique plus son verrou</translation>
    </message>
    <message>
        <source>the line said &quot;%1&quot;</source>
        <translation>la ligne a dit « %1 »</translation>
    </message>
    <message>
        <source>Tighten once now; a result is waited for %1 s.</source>
        <translation>Faites maintenant un serrage ; un résultat est attendu pendant %1 s.</translation>
    </message>
    <message>
        <source>a result has come: torque %1, reading %2</source>
        <translation>un résultat est arrivé : couple %1, mesure %2</translation>
    </message>
    <message>
        <source>no result has come within %1 s</source>
        <translation>aucun résultat n’est arrivé en %1 s</translation>
    </message>
    <message>
        <source>the wrench is unlocked and answers, and has told of no tightening</source>
        <translation>la clé est déverrouillée et répond, et n’a annoncé aucun serrage</translation>
    </message>
    <message>
        <source>tighten once while it is waited for; give more time with --wait-result</source>
        <translation>faites un serrage pendant l’attente ; accordez plus de temps avec --wait-result</translation>
    </message>
</context>
<context>
    <name>ResultsTotals</name>
    <message>
        <source>%1 results, %2 good, %3 not good, %4 gaps, %5 repeated</source>
        <translation>%1 résultats, %2 bons, %3 pas bons, %4 lacunes, %5 répétés</translation>
    </message>
    <message>
        <source>Results: %1</source>
        <translation>Résultats : %1</translation>
    </message>
    <message>
        <source>good: %1</source>
        <translation>bons : %1</translation>
    </message>
    <message>
        <source>not good: %1</source>
        <translation>pas bons : %1</translation>
    </message>
    <message>
        <source>gaps: %1</source>
        <translation>lacunes : %1</translation>
    </message>
    <message>
        <source>repeated: %1</source>
        <translation>répétés : %1</translation>
    </message>
</context>
<context>
    <name>RunCard</name>
    <message>
        <source>%1 good</source>
        <translation>%1 bons</translation>
    </message>
    <message>
        <source>%1 not good</source>
        <translation>%1 pas bons</translation>
    </message>
    <message>
        <source>target %1</source>
        <translation>consigne %1</translation>
    </message>
    <message>
        <source>Run chart of the last %1 results</source>
        <translation>Graphique des %1 derniers résultats</translation>
    </message>
    <message>
        <source>The last results are drawn here, as they come.</source>
        <translation>Les derniers résultats sont tracés ici, au fur et à mesure.</translation>
    </message>
</context>
<context>
    <name>RunCommand</name>
    <message>
        <source>no command of a plugin is named</source>
        <translation>aucune commande d’un module n’est indiquée</translation>
    </message>
    <message>
        <source>&quot;app_workplace commands&quot; lists them</source>
        <translation>« app_workplace commands » les liste</translation>
    </message>
    <message>
        <source>which wrench is to be connected is not said</source>
        <translation>la clé à connecter n’est pas indiquée</translation>
    </message>
    <message>
        <source>give its serial number with --serial-id</source>
        <translation>indiquez son numéro de série avec --serial-id</translation>
    </message>
    <message>
        <source>[driver/]COMMAND [name=value …]</source>
        <translation>[driver/]COMMANDE [nom=valeur …]</translation>
    </message>
    <message>
        <source>Runs one command of a plugin; &quot;app_workplace commands COMMAND&quot; tells its parameters.</source>
        <translation>Exécute une commande d’un module ; « app_workplace commands COMMANDE » en donne les paramètres.</translation>
    </message>
    <message>
        <source>First connects to the wrench and gets it ready, as a session does.</source>
        <translation>Connecte d’abord la clé et la prépare, comme le fait une session.</translation>
    </message>
    <message>
        <source>Ends the run after so long (30 when not said; none for a command that runs until stopped).</source>
        <translation>Termine l’exécution après ce temps (30 par défaut ; sans limite pour une commande qui continue jusqu’à son arrêt).</translation>
    </message>
    <message>
        <source>&quot;%1/&quot; names nobody that runs commands</source>
        <translation>« %1/ » ne désigne rien qui exécute des commandes</translation>
    </message>
    <message>
        <source>write &quot;driver/%1&quot; or only &quot;%1&quot;</source>
        <translation>écrivez « driver/%1 » ou seulement « %1 »</translation>
    </message>
    <message>
        <source>no loaded plugin has the command &quot;%1&quot;</source>
        <translation>aucun module chargé n’a la commande « %1 »</translation>
    </message>
    <message>
        <source>&quot;app_workplace commands&quot; lists what there is</source>
        <translation>« app_workplace commands » montre ce qui existe</translation>
    </message>
    <message>
        <source>&quot;app_workplace commands %1&quot; tells more</source>
        <translation>« app_workplace commands %1 » en dit plus</translation>
    </message>
    <message>
        <source>no loaded plugin can connect to a wrench</source>
        <translation>aucun module chargé ne peut connecter une clé</translation>
    </message>
    <message>
        <source>name the folder of the plugins with --plugins</source>
        <translation>indiquez le dossier des modules avec --plugins</translation>
    </message>
    <message>
        <source>the command &quot;%1&quot; did not succeed</source>
        <translation>la commande « %1 » n’a pas réussi</translation>
    </message>
    <message>
        <source>it was ended by the time limit</source>
        <translation>elle a été arrêtée par la limite de temps</translation>
    </message>
    <message>
        <source>give more time with --limit, and check that the wrench is connected</source>
        <translation>accordez plus de temps avec --limit, et vérifiez que la clé est connectée</translation>
    </message>
    <message>
        <source>it was interrupted</source>
        <translation>elle a été interrompue</translation>
    </message>
    <message>
        <source>the plugin refused it</source>
        <translation>le module l’a refusée</translation>
    </message>
    <message>
        <source>the device said no or did not answer</source>
        <translation>l’appareil a refusé ou n’a pas répondu</translation>
    </message>
    <message>
        <source>%1 tightening results came with the link, and are not stored; a session stores what comes</source>
        <translation>%1 résultats de serrage sont arrivés avec la liaison et ne sont pas enregistrés ; une session enregistre ce qui arrive</translation>
    </message>
</context>
<context>
    <name>ScanCommand</name>
    <message>
        <source>a scan takes no argument &quot;%1&quot;</source>
        <translation>une recherche n’accepte pas l’argument « %1 »</translation>
    </message>
    <message>
        <source>see app_workplace scan --help</source>
        <translation>voir app_workplace scan --help</translation>
    </message>
    <message>
        <source>Lists the wrenches in range, the strongest signal first.</source>
        <translation>Liste les clés à portée, le signal le plus fort en premier.</translation>
    </message>
    <message>
        <source>Ends after so long (5 when not said); 0: goes on until Ctrl-C.</source>
        <translation>Se termine après ce temps (5 par défaut) ; 0 : continue jusqu’à Ctrl-C.</translation>
    </message>
    <message>
        <source>no loaded plugin can scan</source>
        <translation>aucun module chargé ne sait chercher</translation>
    </message>
    <message>
        <source>name the folder of the plugins with --plugins</source>
        <translation>indiquez le dossier des modules avec --plugins</translation>
    </message>
    <message>
        <source>searching …</source>
        <translation>recherche …</translation>
    </message>
    <message>
        <source>serial number</source>
        <translation>numéro de série</translation>
    </message>
    <message>
        <source>address</source>
        <translation>adresse</translation>
    </message>
    <message>
        <source>signal (dBm)</source>
        <translation>signal (dBm)</translation>
    </message>
</context>
<context>
    <name>Session</name>
    <message>
        <source>the device plugin has no command &quot;%1&quot;</source>
        <translation>le module d’appareil n’a pas de commande « %1 »</translation>
    </message>
    <message>
        <source>check the folder of the plugins with --plugins</source>
        <translation>vérifiez le dossier des modules avec --plugins</translation>
    </message>
    <message>
        <source>the listener has ended</source>
        <translation>l’écoute s’est terminée</translation>
    </message>
    <message>
        <source>the driver did not say why</source>
        <translation>le pilote n’a pas dit pourquoi</translation>
    </message>
</context>
<context>
    <name>SessionCommand</name>
    <message>
        <source>Ends when the link to the wrench is lost, instead of restoring it.</source>
        <translation>Se termine quand la liaison avec la clé est perdue, au lieu de la rétablir.</translation>
    </message>
    <message>
        <source>Ends when the link was away so long (%1 when not said, or 0).</source>
        <translation>Se termine quand la liaison a manqué ce temps-là (%1 si non indiqué, ou 0).</translation>
    </message>
    <message>
        <source>--%1 and --%2 do not go together</source>
        <translation>--%1 et --%2 ne vont pas ensemble</translation>
    </message>
    <message>
        <source>which wrench is not said</source>
        <translation>la clé n’est pas indiquée</translation>
    </message>
    <message>
        <source>give its serial number with --serial-id; &quot;app_workplace scan&quot; lists what is in range</source>
        <translation>indiquez son numéro de série avec --serial-id ; « app_workplace scan » liste ce qui est à portée</translation>
    </message>
    <message>
        <source>a session takes no argument &quot;%1&quot;</source>
        <translation>une session n’accepte pas l’argument « %1 »</translation>
    </message>
    <message>
        <source>see app_workplace session --help</source>
        <translation>voir app_workplace session --help</translation>
    </message>
    <message>
        <source>Connects to a wrench and takes its tightening results.</source>
        <translation>Connecte une clé et reçoit ses résultats de serrage.</translation>
    </message>
    <message>
        <source>Selects this program; without it the selection is left alone.</source>
        <translation>Sélectionne ce programme ; sinon la sélection reste telle quelle.</translation>
    </message>
    <message>
        <source>Ends after so many results.</source>
        <translation>Se termine après autant de résultats.</translation>
    </message>
    <message>
        <source>Ends after listening so long.</source>
        <translation>Se termine après ce temps d’écoute.</translation>
    </message>
    <message>
        <source>Time limit of each step, instead of its own.</source>
        <translation>Limite de temps de chaque étape, au lieu de la sienne.</translation>
    </message>
    <message>
        <source>no loaded plugin has the command &quot;%1&quot;</source>
        <translation>aucun module chargé n’a la commande « %1 »</translation>
    </message>
    <message>
        <source>name the folder of the plugins with --plugins</source>
        <translation>indiquez le dossier des modules avec --plugins</translation>
    </message>
</context>
<context>
    <name>SessionService</name>
    <message>
        <source>listening; results so far: %1</source>
        <translation>à l’écoute ; résultats jusqu’ici : %1</translation>
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
        <translation>la ligne n’a pas pu être ouverte</translation>
    </message>
    <message>
        <source>check the port and the cable; &quot;app_workplace ports&quot; lists the ports</source>
        <translation>vérifiez le port et le câble ; « app_workplace ports » liste les ports</translation>
    </message>
    <message>
        <source>the wrench could not be connected</source>
        <translation>la clé n’a pas pu être connectée</translation>
    </message>
    <message>
        <source>switch the wrench on, bring it near and check the serial number; &quot;app_workplace scan&quot; lists what is in range</source>
        <translation>allumez la clé, rapprochez-la et vérifiez le numéro de série ; « app_workplace scan » liste ce qui est à portée</translation>
    </message>
    <message>
        <source>the wrench could not be configured</source>
        <translation>la clé n’a pas pu être réglée</translation>
    </message>
    <message>
        <source>bring the wrench nearer and try again</source>
        <translation>rapprochez la clé et réessayez</translation>
    </message>
    <message>
        <source>the wrench&apos;s programs could not be read</source>
        <translation>les programmes de la clé n’ont pas pu être lus</translation>
    </message>
    <message>
        <source>finish the tightening that is going on, bring the wrench nearer and try again</source>
        <translation>terminez le serrage en cours, rapprochez la clé et réessayez</translation>
    </message>
    <message>
        <source>the program could not be selected</source>
        <translation>le programme n’a pas pu être sélectionné</translation>
    </message>
    <message>
        <source>choose one of the listed programs with --program</source>
        <translation>choisissez avec --program un des programmes de la liste</translation>
    </message>
    <message>
        <source>the wrench could not be unlocked</source>
        <translation>la clé n’a pas pu être déverrouillée</translation>
    </message>
    <message>
        <source>the results could not be listened to</source>
        <translation>les résultats n’ont pas pu être reçus</translation>
    </message>
    <message>
        <source>try again</source>
        <translation>réessayez</translation>
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
        <translation>on ne sait pas laquelle a la liaison</translation>
    </message>
    <message>
        <source>%1 was taken</source>
        <translation>%1 a été prise</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>attention</translation>
    </message>
    <message>
        <source>%1 wrenches answer to the serial number %2: %3; %4: switch the others off, or give each a number of its own</source>
        <translation>%1 clés répondent au numéro de série %2 : %3 ; %4 : éteignez les autres, ou donnez à chacune son propre numéro</translation>
    </message>
    <message>
        <source>the line is open again</source>
        <translation>la ligne est de nouveau ouverte</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
    <message>
        <source>attempt %1 in %2 s; %3</source>
        <translation>essai %1 dans %2 s ; %3</translation>
    </message>
    <message>
        <source>attempt %1 …</source>
        <translation>essai %1 …</translation>
    </message>
    <message>
        <source>restored after %1 (attempt %2)</source>
        <translation>rétablie après %1 (essai %2)</translation>
    </message>
    <message>
        <source>torque</source>
        <translation>couple</translation>
    </message>
    <message>
        <source>status</source>
        <translation>état</translation>
    </message>
    <message>
        <source>direction</source>
        <translation>sens</translation>
    </message>
    <message>
        <source>angle</source>
        <translation>angle</translation>
    </message>
    <message>
        <source>reading</source>
        <translation>mesure</translation>
    </message>
    <message>
        <source>program</source>
        <translation>programme</translation>
    </message>
    <message>
        <source>Session with the wrench %1 on %2 (simulated)</source>
        <translation>Session avec la clé %1 sur %2 (simulée)</translation>
    </message>
    <message>
        <source>Session with the wrench %1 on %2</source>
        <translation>Session avec la clé %1 sur %2</translation>
    </message>
    <message>
        <source>searching …</source>
        <translation>recherche …</translation>
    </message>
    <message>
        <source>reading …</source>
        <translation>lecture …</translation>
    </message>
    <message>
        <source>going to the program …</source>
        <translation>passage au programme …</translation>
    </message>
    <message>
        <source>waiting for results; Ctrl-C ends the session</source>
        <translation>attend les résultats ; Ctrl-C termine la session</translation>
    </message>
    <message>
        <source>the line is open</source>
        <translation>la ligne est ouverte</translation>
    </message>
    <message>
        <source>the wrench answers</source>
        <translation>la clé répond</translation>
    </message>
    <message>
        <source>locked, results switched on</source>
        <translation>verrouillée, résultats activés</translation>
    </message>
    <message>
        <source>ready to tighten</source>
        <translation>prête à serrer</translation>
    </message>
    <message>
        <source>heard %1 (%2, %3 dBm)</source>
        <translation>entendue : %1 (%2, %3 dBm)</translation>
    </message>
    <message>
        <source>1 program</source>
        <translation>1 programme</translation>
    </message>
    <message>
        <source>%1 programs</source>
        <translation>%1 programmes</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>unité</translation>
    </message>
    <message>
        <source>target torque</source>
        <translation>couple visé</translation>
    </message>
    <message>
        <source>program %1</source>
        <translation>programme %1</translation>
    </message>
    <message>
        <source>good</source>
        <translation>conforme</translation>
    </message>
    <message>
        <source>NOT GOOD</source>
        <translation>NON CONFORME</translation>
    </message>
    <message>
        <source>No result</source>
        <translation>Aucun résultat</translation>
    </message>
    <message>
        <source>1 result: %1 good, %2 not good</source>
        <translation>1 résultat : %1 conforme, %2 non conforme</translation>
    </message>
    <message>
        <source>%1 results: %2 good, %3 not good</source>
        <translation>%1 résultats : %2 conformes, %3 non conformes</translation>
    </message>
    <message>
        <source>%1; %2</source>
        <translation>%1 ; %2</translation>
    </message>
    <message>
        <source>%1; program %2</source>
        <translation>%1 ; programme %2</translation>
    </message>
    <message>
        <source>%1; program %2 (the first one listed; none was selected)</source>
        <translation>%1 ; programme %2 (le premier de la liste ; aucun n’a été sélectionné)</translation>
    </message>
    <message>
        <source>the dongle holds a link from before and does not say to which wrench: when it may be another one than %1, unplug the dongle, plug it in again and start anew</source>
        <translation>l’adaptateur radio garde une liaison précédente et ne dit pas vers quelle clé : si ce peut être une autre que %1, débranchez l’adaptateur radio, rebranchez-le et recommencez</translation>
    </message>
</context>
<context>
    <name>SetUp</name>
    <message>
        <source>it refused</source>
        <translation>elle a refusé</translation>
    </message>
    <message>
        <source>it named none</source>
        <translation>elle n’en a nommé aucun</translation>
    </message>
    <message>
        <source>the wrench has the programs 1 to %1, and %2 was asked for</source>
        <translation>la clé a les programmes 1 à %1, et %2 était demandé</translation>
    </message>
    <message>
        <source>the frame could not be written</source>
        <translation>la trame n’a pas pu être écrite</translation>
    </message>
    <message>
        <source>the driver does not keep the link alive</source>
        <translation>le pilote ne maintient pas la liaison</translation>
    </message>
    <message>
        <source>check the folder of the plugins with --plugins</source>
        <translation>vérifiez le dossier des modules avec --plugins</translation>
    </message>
</context>
<context>
    <name>Settings</name>
    <message>
        <source>The serial number of the wrench.</source>
        <translation>Le numéro de série de la clé.</translation>
    </message>
    <message>
        <source>The folder of the plugins.</source>
        <translation>Le dossier des modules.</translation>
    </message>
    <message>
        <source>The folder for what is kept of a device.</source>
        <translation>Le dossier de ce qui est conservé d’un appareil.</translation>
    </message>
    <message>
        <source>Writes down every byte on the line; - for standard error.</source>
        <translation>Note chaque octet sur la ligne ; - pour la sortie d’erreur.</translation>
    </message>
    <message>
        <source>The language of the texts; that of the environment when not said.</source>
        <translation>La langue des textes ; celle de l’environnement si elle n’est pas indiquée.</translation>
    </message>
    <message>
        <source>One JSON object a line, messages on standard error.</source>
        <translation>Un objet JSON par ligne, messages sur la sortie d’erreur.</translation>
    </message>
    <message>
        <source>Results and errors only.</source>
        <translation>Résultats et erreurs seulement.</translation>
    </message>
    <message>
        <source>Also shows what is in use, all log lines, and how long it takes.</source>
        <translation>Montre aussi ce qui est utilisé, toutes les lignes de journal et les durées.</translation>
    </message>
    <message>
        <source>The serial port, or &quot;simulated&quot; (the default) for a simulator of its own, which plays the scenario FILE when it is named.</source>
        <translation>Le port série, ou « simulated » (par défaut) pour un simulateur propre, qui joue le scénario FILE s’il est nommé.</translation>
    </message>
</context>
<context>
    <name>SidePanel</name>
    <message>
        <source>light</source>
        <translation>clair</translation>
    </message>
    <message>
        <source>dark</source>
        <translation>sombre</translation>
    </message>
    <message>
        <source>high contrast</source>
        <translation>contraste élevé</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Appareil</translation>
    </message>
    <message>
        <source>Devices (%1)</source>
        <translation>Appareils (%1)</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Langue</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Thème</translation>
    </message>
</context>
<context>
    <name>SimulatedWrench</name>
    <message>
        <source>the scenario %1 is not used</source>
        <translation>le scénario %1 n’est pas utilisé</translation>
    </message>
    <message>
        <source>mend the file, or name another one with --port simulated:FILE</source>
        <translation>corriger le fichier, ou en nommer un autre avec --port simulated:FILE</translation>
    </message>
</context>
<context>
    <name>SimulatorProcess</name>
    <message>
        <source>%1 does not start: %2</source>
        <translation>%1 ne démarre pas : %2</translation>
    </message>
    <message>
        <source>its process crashed or was killed</source>
        <translation>son processus a planté ou a été tué</translation>
    </message>
    <message>
        <source>its process ended with the exit status %1</source>
        <translation>son processus s’est terminé avec le code de retour %1</translation>
    </message>
    <message>
        <source>%1 and the words: %2</source>
        <translation>%1 et ces mots : %2</translation>
    </message>
    <message>
        <source>%1 has not said within %2 s that it is ready</source>
        <translation>%1 ne s’est pas annoncé prêt en %2 s</translation>
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
        <translation>Envoie : %1</translation>
    </message>
    <message>
        <source>What to do: %1</source>
        <translation>Que faire : %1</translation>
    </message>
</context>
<context>
    <name>Step</name>
    <message>
        <source>open</source>
        <translation>ouverture</translation>
    </message>
    <message>
        <source>connect</source>
        <translation>connexion</translation>
    </message>
    <message>
        <source>configure</source>
        <translation>réglage</translation>
    </message>
    <message>
        <source>programs</source>
        <translation>programmes</translation>
    </message>
    <message>
        <source>select</source>
        <translation>sélection</translation>
    </message>
    <message>
        <source>unlock</source>
        <translation>déverrouillage</translation>
    </message>
    <message>
        <source>listen</source>
        <translation>réception</translation>
    </message>
    <message>
        <source>link</source>
        <translation>liaison</translation>
    </message>
    <message>
        <source>session</source>
        <translation>session</translation>
    </message>
    <message>
        <source>scan</source>
        <translation>recherche</translation>
    </message>
    <message>
        <source>run</source>
        <translation>exécution</translation>
    </message>
    <message>
        <source>commands</source>
        <translation>commandes</translation>
    </message>
    <message>
        <source>command line</source>
        <translation>ligne de commande</translation>
    </message>
    <message>
        <source>configuration</source>
        <translation>configuration</translation>
    </message>
    <message>
        <source>history</source>
        <translation>historique</translation>
    </message>
    <message>
        <source>export</source>
        <translation>export</translation>
    </message>
    <message>
        <source>plugins</source>
        <translation>modules</translation>
    </message>
    <message>
        <source>port</source>
        <translation>port</translation>
    </message>
    <message>
        <source>line</source>
        <translation>ligne</translation>
    </message>
    <message>
        <source>dongle</source>
        <translation>adaptateur</translation>
    </message>
    <message>
        <source>range</source>
        <translation>portée</translation>
    </message>
    <message>
        <source>wrench</source>
        <translation>clé</translation>
    </message>
    <message>
        <source>results</source>
        <translation>résultats</translation>
    </message>
    <message>
        <source>lock</source>
        <translation>verrouillage</translation>
    </message>
</context>
<context>
    <name>Supervisor</name>
    <message>
        <source>the dongle cannot reach the wrench %1 (&quot;%2&quot;): bring it near and check that it is switched on</source>
        <translation>l’adaptateur radio n’atteint pas la clé %1 (« %2 ») : rapprochez-la et vérifiez qu’elle est allumée</translation>
    </message>
    <message>
        <source>the dongle has lost its link to the wrench %1 (&quot;%2&quot;)</source>
        <translation>l’adaptateur radio a perdu sa liaison avec la clé %1 (« %2 »)</translation>
    </message>
    <message>
        <source>the link to the wrench %1 was not restored within %2 s</source>
        <translation>la liaison avec la clé %1 n’a pas été rétablie en %2 s</translation>
    </message>
    <message>
        <source>the link to the wrench %1 is lost</source>
        <translation>la liaison avec la clé %1 est perdue</translation>
    </message>
    <message>
        <source>mend that and start again; without --no-reconnect a session restores its link itself</source>
        <translation>réparez cela et recommencez ; sans --no-reconnect, une session rétablit elle-même sa liaison</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
</context>
<context>
    <name>TraceList</name>
    <message>
        <source>seconds</source>
        <translation>secondes</translation>
    </message>
    <message>
        <source>&gt; to the device, &lt; from it, ! a remark</source>
        <translation>&gt; vers l’appareil, &lt; de l’appareil, ! une remarque</translation>
    </message>
    <message>
        <source>Entries of the trace, %1</source>
        <translation>Entrées de la trace, %1</translation>
    </message>
    <message>
        <source>sent</source>
        <translation>envoyé</translation>
    </message>
    <message>
        <source>arrived</source>
        <translation>reçu</translation>
    </message>
    <message>
        <source>remark</source>
        <translation>remarque</translation>
    </message>
    <message>
        <source>No entries</source>
        <translation>Aucune entrée</translation>
    </message>
    <message>
        <source>Newest</source>
        <translation>Dernières</translation>
    </message>
</context>
<context>
    <name>TracePage</name>
    <message>
        <source>Go on: show what has come meanwhile</source>
        <translation>Continuer : montrer ce qui est venu entre-temps</translation>
    </message>
    <message>
        <source>Pause: leave the rows as they are</source>
        <translation>Pause : laisser les lignes comme elles sont</translation>
    </message>
    <message>
        <source>Go on</source>
        <translation>Continuer</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Clear: forget what is kept</source>
        <translation>Vider : oublier ce qui est conservé</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Vider</translation>
    </message>
    <message>
        <source>Only with this text</source>
        <translation>Seulement avec ce texte</translation>
    </message>
    <message>
        <source>What there is does not pass the filter.</source>
        <translation>Ce qu’il y a ne passe pas le filtre.</translation>
    </message>
    <message>
        <source>It comes as soon as something is said.</source>
        <translation>Elles viennent dès que quelque chose est dit.</translation>
    </message>
    <message>
        <source>The line is not in use: scan or connect, and it is heard from then on.</source>
        <translation>La ligne n’est pas utilisée : cherchez ou connectez, et elle est écoutée à partir de là.</translation>
    </message>
    <message>
        <source>%1 of %2 entries, %3 wait</source>
        <translation>%1 entrées sur %2, %3 en attente</translation>
    </message>
    <message>
        <source>%1 of %2 entries</source>
        <translation>%1 entrées sur %2</translation>
    </message>
    <message>
        <source>%1 were too many and are gone</source>
        <translation>%1 étaient de trop et sont perdues</translation>
    </message>
    <message>
        <source>Saved: %1</source>
        <translation>Enregistré : %1</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>named by the time</source>
        <translation>nommé d’après l’heure</translation>
    </message>
    <message>
        <source>Save what is kept as a trace that can be played back</source>
        <translation>Enregistrer ce qui est conservé comme une trace qui peut être rejouée</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
</context>
<context>
    <name>TraceTable</name>
    <message>
        <source>there is no trace to save</source>
        <translation>il n’y a pas de trace à enregistrer</translation>
    </message>
    <message>
        <source>nothing was heard of the line yet</source>
        <translation>rien n’a encore été entendu de la ligne</translation>
    </message>
    <message>
        <source>the trace is not saved</source>
        <translation>la trace n’est pas enregistrée</translation>
    </message>
    <message>
        <source>the file has no name</source>
        <translation>le fichier n’a pas de nom</translation>
    </message>
    <message>
        <source>give it one</source>
        <translation>donnez-lui un nom</translation>
    </message>
    <message>
        <source>there is a file %1 already</source>
        <translation>il y a déjà un fichier %1</translation>
    </message>
    <message>
        <source>give it another name</source>
        <translation>donnez-lui un autre nom</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
    <message>
        <source>name a file in a folder that you may write to</source>
        <translation>nommez un fichier dans un dossier où vous pouvez écrire</translation>
    </message>
    <message>
        <source>make room, or name another folder</source>
        <translation>faites de la place, ou nommez un autre dossier</translation>
    </message>
</context>
<context>
    <name>TraceToggle</name>
    <message>
        <source>Show what was sent</source>
        <translation>Montrer ce qui a été envoyé</translation>
    </message>
    <message>
        <source>Show what has arrived</source>
        <translation>Montrer ce qui a été reçu</translation>
    </message>
    <message>
        <source>Show remarks</source>
        <translation>Montrer les remarques</translation>
    </message>
    <message>
        <source>&gt; sent</source>
        <translation>&gt; envoyé</translation>
    </message>
    <message>
        <source>&lt; arrived</source>
        <translation>&lt; reçu</translation>
    </message>
    <message>
        <source>! remarks</source>
        <translation>! remarques</translation>
    </message>
</context>
<context>
    <name>UiBusy</name>
    <message>
        <source>Stop: %1</source>
        <translation>Arrêter : %1</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
</context>
<context>
    <name>UiProblem</name>
    <message>
        <source>Close this message</source>
        <translation>Fermer ce message</translation>
    </message>
</context>
<context>
    <name>UiVerdict</name>
    <message>
        <source>good</source>
        <translation>bon</translation>
    </message>
    <message>
        <source>not good</source>
        <translation>pas bon</translation>
    </message>
</context>
<context>
    <name>WindowDisplay</name>
    <message>
        <source>no window can be shown: there is no display</source>
        <translation>aucune fenêtre ne peut être affichée : il n’y a pas d’écran</translation>
    </message>
    <message>
        <source>neither DISPLAY nor WAYLAND_DISPLAY is set</source>
        <translation>ni DISPLAY ni WAYLAND_DISPLAY n’est défini</translation>
    </message>
    <message>
        <source>start it from a desktop, or with ssh -X; --screenshot needs no display</source>
        <translation>lancez-la depuis un bureau, ou avec ssh -X ; --screenshot n’a pas besoin d’écran</translation>
    </message>
</context>
<context>
    <name>Workplace</name>
    <message>
        <source>there is no driver plugin</source>
        <translation>il n’y a pas de module pilote</translation>
    </message>
    <message>
        <source>there is no device plugin</source>
        <translation>il n’y a pas de module d’appareil</translation>
    </message>
    <message>
        <source>none could be loaded from %1</source>
        <translation>aucun n’a pu être chargé depuis %1</translation>
    </message>
    <message>
        <source>name the folder of the plugins with --plugins</source>
        <translation>indiquez le dossier des modules avec --plugins</translation>
    </message>
    <message>
        <source>the simulated wrench is not there</source>
        <translation>la clé simulée n’est pas là</translation>
    </message>
    <message>
        <source>build or install wrench_simulator beside this program, or name a port with --port</source>
        <translation>construisez ou installez wrench_simulator à côté de ce programme, ou indiquez un port avec --port</translation>
    </message>
    <message>
        <source>the simulated wrench has gone</source>
        <translation>la clé simulée a disparu</translation>
    </message>
    <message>
        <source>start again</source>
        <translation>recommencez</translation>
    </message>
    <message>
        <source>the device&apos;s stored state %1 is not used</source>
        <translation>l’état enregistré %1 de l’appareil n’est pas utilisé</translation>
    </message>
    <message>
        <source>move it away, or name another folder with --data</source>
        <translation>déplacez-le, ou indiquez un autre dossier avec --data</translation>
    </message>
    <message>
        <source>a plugin makes no instance for this workplace</source>
        <translation>un module ne fournit pas d’instance pour ce poste</translation>
    </message>
    <message>
        <source>name another folder with --plugins</source>
        <translation>indiquez un autre dossier avec --plugins</translation>
    </message>
    <message>
        <source>the device&apos;s state cannot be stored in %1: %2; name another folder with --data</source>
        <translation>l’état de l’appareil ne peut pas être enregistré dans %1 : %2 ; indiquez un autre dossier avec --data</translation>
    </message>
    <message>
        <source>the scenario %1 is not used</source>
        <translation>le scénario %1 n’est pas utilisé</translation>
    </message>
    <message>
        <source>mend the file, or name another one with --port simulated:FILE</source>
        <translation>corriger le fichier, ou en nommer un autre avec --port simulated:FILE</translation>
    </message>
    <message>
        <source>the simulated wrench cannot have the serial number &quot;%1&quot;</source>
        <translation>la clé simulée ne peut pas avoir le numéro de série « %1 »</translation>
    </message>
    <message>
        <source>name another one with --serial-id</source>
        <translation>nommez-en un autre avec --serial-id</translation>
    </message>
</context>
<context>
    <name>WorkplaceCommand</name>
    <message>
        <source>plugins from %1: %2</source>
        <translation>modules de %1 : %2</translation>
    </message>
</context>
<context>
    <name>WrenchLock</name>
    <message>
        <source>it answered &quot;%1&quot; to &quot;%2&quot;</source>
        <translation>elle a répondu « %1 » à « %2 »</translation>
    </message>
    <message>
        <source>it did not answer to &quot;%1&quot;</source>
        <translation>elle n’a pas répondu à « %1 »</translation>
    </message>
</context>
<context>
    <name>WrenchOrders</name>
    <message>
        <source>try again</source>
        <translation>réessayez</translation>
    </message>
    <message>
        <source>check the folder of the plugins with --plugins</source>
        <translation>vérifiez le dossier des modules avec --plugins</translation>
    </message>
    <message>
        <source>the device plugin does not know it</source>
        <translation>le plugin de l’appareil ne le connaît pas</translation>
    </message>
    <message>
        <source>wait until the link is restored, and try again</source>
        <translation>attendez que la liaison soit rétablie, puis réessayez</translation>
    </message>
    <message>
        <source>the wrench has the programs 1 to %1, and %2 was asked for</source>
        <translation>la clé a les programmes 1 à %1, et %2 était demandé</translation>
    </message>
    <message>
        <source>choose one of the listed programs</source>
        <translation>choisissez l’un des programmes listés</translation>
    </message>
    <message>
        <source>the session does not listen to the wrench</source>
        <translation>la session n’est pas à l’écoute de la clé</translation>
    </message>
    <message>
        <source>wait until it does</source>
        <translation>attendez qu’elle le soit</translation>
    </message>
    <message>
        <source>the link to the wrench is being restored</source>
        <translation>la liaison avec la clé est en cours de rétablissement</translation>
    </message>
    <message>
        <source>wait until it is, and try again</source>
        <translation>attendez qu’elle le soit, puis réessayez</translation>
    </message>
    <message>
        <source>another order is being carried out</source>
        <translation>un autre ordre est en cours d’exécution</translation>
    </message>
    <message>
        <source>wait until it is done</source>
        <translation>attendez qu’il soit terminé</translation>
    </message>
    <message>
        <source>the frame could not be written</source>
        <translation>la trame n’a pas pu être écrite</translation>
    </message>
    <message>
        <source>the wrench has not answered within %1 s</source>
        <translation>la clé n’a pas répondu en %1 s</translation>
    </message>
    <message>
        <source>bring the wrench nearer and try again</source>
        <translation>rapprochez la clé et réessayez</translation>
    </message>
    <message>
        <source>the wrench could not be locked</source>
        <translation>la clé n’a pas pu être verrouillée</translation>
    </message>
</context>
<context>
    <name>WrenchScan</name>
    <message>
        <source>the line is not usable</source>
        <translation>la ligne n’est pas utilisable</translation>
    </message>
    <message>
        <source>no wrench was heard</source>
        <translation>aucune clé n’a été entendue</translation>
    </message>
    <message>
        <source>switch the wrench on, bring it near, and check the port</source>
        <translation>allumez la clé, rapprochez-la, et vérifiez le port</translation>
    </message>
</context>
<context>
    <name>WrenchStage</name>
    <message>
        <source>the wrench acknowledges</source>
        <translation>la clé acquitte</translation>
    </message>
    <message>
        <source>DI:C to the wrench, which tells its lock and changes nothing</source>
        <translation>DI:C à la clé, qui indique son verrou et ne change rien</translation>
    </message>
    <message>
        <source>the line said &quot;%1&quot;</source>
        <translation>la ligne a dit « %1 »</translation>
    </message>
    <message>
        <source>the wrench answers; it is locked</source>
        <translation>la clé répond ; elle est verrouillée</translation>
    </message>
    <message>
        <source>the wrench answers; it is unlocked</source>
        <translation>la clé répond ; elle est déverrouillée</translation>
    </message>
    <message>
        <source>the dongle does not open the link again for a frame</source>
        <translation>l’adaptateur radio ne rouvre pas la liaison pour une trame</translation>
    </message>
    <message>
        <source>set the dongle to open its last link by itself</source>
        <translation>réglez l’adaptateur radio pour qu’il rouvre lui-même sa dernière liaison</translation>
    </message>
    <message>
        <source>the wrench is not reached</source>
        <translation>la clé est injoignable</translation>
    </message>
    <message>
        <source>bring the wrench nearer and try again</source>
        <translation>rapprochez la clé et réessayez</translation>
    </message>
    <message>
        <source>the wrench answers nonsense</source>
        <translation>la clé répond n’importe quoi</translation>
    </message>
    <message>
        <source>it was asked for its lock, and said %1</source>
        <translation>interrogée sur son verrou, elle a dit %1</translation>
    </message>
    <message>
        <source>switch the wrench off and on; when that does not help it is of another kind, or broken</source>
        <translation>éteignez et rallumez la clé ; si cela n’aide pas, elle est d’un autre type, ou en panne</translation>
    </message>
    <message>
        <source>the wrench is silent, although its link opens</source>
        <translation>la clé se tait, bien que sa liaison s’ouvre</translation>
    </message>
    <message>
        <source>it did not answer to &quot;%1&quot;</source>
        <translation>elle n’a pas répondu à « %1 »</translation>
    </message>
    <message>
        <source>switch the wrench off and on, and bring it near</source>
        <translation>éteignez et rallumez la clé, et rapprochez-la</translation>
    </message>
</context>
</TS>
