<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>PluginLoader</name>
    <message>
        <source>the plugin %1 is not used: %2; %3</source>
        <translation>le module %1 n’est pas utilisé : %2 ; %3</translation>
    </message>
    <message>
        <source>there is no such folder</source>
        <translation>ce dossier n’existe pas</translation>
    </message>
    <message>
        <source>name the folder that holds the plugins</source>
        <translation>indiquez le dossier qui contient les modules</translation>
    </message>
    <message>
        <source>it holds no library (*.so)</source>
        <translation>il ne contient aucune bibliothèque (*.so)</translation>
    </message>
    <message>
        <source>build or install the plugins, or name another folder</source>
        <translation>construisez ou installez les modules, ou indiquez un autre dossier</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>ce fichier n’existe pas</translation>
    </message>
    <message>
        <source>check the name</source>
        <translation>vérifiez le nom</translation>
    </message>
    <message>
        <source>it may not be read</source>
        <translation>il ne peut pas être lu</translation>
    </message>
    <message>
        <source>give this user the right to read it</source>
        <translation>donnez à cet utilisateur le droit de le lire</translation>
    </message>
    <message>
        <source>it is no Qt plugin (%1)</source>
        <translation>ce n’est pas un module Qt (%1)</translation>
    </message>
    <message>
        <source>put only plugin libraries for this machine into the folder</source>
        <translation>ne mettez dans le dossier que des bibliothèques de modules pour cette machine</translation>
    </message>
    <message>
        <source>its interface id &quot;%1&quot; is not one of this host&apos;s</source>
        <translation>son identifiant d’interface « %1 » n’est pas de cet hôte</translation>
    </message>
    <message>
        <source>use a plugin made for this host</source>
        <translation>utilisez un module fait pour cet hôte</translation>
    </message>
    <message>
        <source>it does not load (%1)</source>
        <translation>il ne se charge pas (%1)</translation>
    </message>
    <message>
        <source>build it against this machine&apos;s Qt %1 and this host&apos;s libraries</source>
        <translation>construisez-le avec Qt %1 de cette machine et les bibliothèques de cet hôte</translation>
    </message>
    <message>
        <source>its object is not a plugin of this host</source>
        <translation>son objet n’est pas un module de cet hôte</translation>
    </message>
    <message>
        <source>derive it from DAbstractPlugin and build it against this host&apos;s libraries</source>
        <translation>dérivez-le de DAbstractPlugin et construisez-le avec les bibliothèques de cet hôte</translation>
    </message>
    <message>
        <source>it declares no command</source>
        <translation>il ne déclare aucune commande</translation>
    </message>
    <message>
        <source>let its initPluginCommands() declare at least one</source>
        <translation>faites déclarer au moins une commande par son initPluginCommands()</translation>
    </message>
    <message>
        <source>it failed while it was loaded (%1)</source>
        <translation>il a échoué au chargement (%1)</translation>
    </message>
    <message>
        <source>ask its maker for a mended one</source>
        <translation>demandez à son auteur une version corrigée</translation>
    </message>
    <message>
        <source>it failed while it was loaded</source>
        <translation>il a échoué au chargement</translation>
    </message>
    <message>
        <source>%1 belongs to %2, who is neither root nor this user nor the owner of this program</source>
        <translation>%1 appartient à %2, qui n’est ni root, ni cet utilisateur, ni le propriétaire de ce programme</translation>
    </message>
    <message>
        <source>when you trust it, make it yours: sudo chown $USER &quot;%1&quot;; otherwise take another one</source>
        <translation>si vous lui faites confiance, appropriez-vous-le : sudo chown $USER &quot;%1&quot; ; sinon prenez-en un autre</translation>
    </message>
    <message>
        <source>every user may write to %1</source>
        <translation>tout utilisateur peut écrire dans %1</translation>
    </message>
    <message>
        <source>see that nobody has changed it, then take that right away: chmod o-w &quot;%1&quot;</source>
        <translation>vérifiez que personne n’y a rien changé, puis retirez ce droit : chmod o-w &quot;%1&quot;</translation>
    </message>
    <message>
        <source>everybody in the group %2 may write to %1</source>
        <translation>tout membre du groupe %2 peut écrire dans %1</translation>
    </message>
    <message>
        <source>see that nobody has changed it, then take that right away: chmod g-w &quot;%1&quot;</source>
        <translation>vérifiez que personne n’y a rien changé, puis retirez ce droit : chmod g-w &quot;%1&quot;</translation>
    </message>
</context>
</TS>
