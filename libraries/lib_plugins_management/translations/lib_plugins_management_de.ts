<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>PluginLoader</name>
    <message>
        <source>the plugin %1 is not used: %2; %3</source>
        <translation>das Plugin %1 wird nicht verwendet: %2; %3</translation>
    </message>
    <message>
        <source>there is no such folder</source>
        <translation>diesen Ordner gibt es nicht</translation>
    </message>
    <message>
        <source>name the folder that holds the plugins</source>
        <translation>nennen Sie den Ordner mit den Plugins</translation>
    </message>
    <message>
        <source>it holds no library (*.so)</source>
        <translation>er enthält keine Bibliothek (*.so)</translation>
    </message>
    <message>
        <source>build or install the plugins, or name another folder</source>
        <translation>bauen oder installieren Sie die Plugins, oder nennen Sie einen anderen Ordner</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>diese Datei gibt es nicht</translation>
    </message>
    <message>
        <source>check the name</source>
        <translation>prüfen Sie den Namen</translation>
    </message>
    <message>
        <source>it may not be read</source>
        <translation>es darf nicht gelesen werden</translation>
    </message>
    <message>
        <source>give this user the right to read it</source>
        <translation>geben Sie diesem Benutzer Leserecht</translation>
    </message>
    <message>
        <source>it is no Qt plugin (%1)</source>
        <translation>es ist kein Qt-Plugin (%1)</translation>
    </message>
    <message>
        <source>put only plugin libraries for this machine into the folder</source>
        <translation>legen Sie nur Plugin-Bibliotheken für diesen Rechner in den Ordner</translation>
    </message>
    <message>
        <source>its interface id &quot;%1&quot; is not one of this host&apos;s</source>
        <translation>seine Schnittstellenkennung „%1“ gehört nicht zu diesem Host</translation>
    </message>
    <message>
        <source>use a plugin made for this host</source>
        <translation>verwenden Sie ein Plugin für diesen Host</translation>
    </message>
    <message>
        <source>it does not load (%1)</source>
        <translation>es lässt sich nicht laden (%1)</translation>
    </message>
    <message>
        <source>build it against this machine&apos;s Qt %1 and this host&apos;s libraries</source>
        <translation>bauen Sie es mit Qt %1 dieses Rechners und den Bibliotheken dieses Hosts</translation>
    </message>
    <message>
        <source>its object is not a plugin of this host</source>
        <translation>sein Objekt ist kein Plugin dieses Hosts</translation>
    </message>
    <message>
        <source>derive it from DAbstractPlugin and build it against this host&apos;s libraries</source>
        <translation>leiten Sie es von DAbstractPlugin ab und bauen Sie es mit den Bibliotheken dieses Hosts</translation>
    </message>
    <message>
        <source>it declares no command</source>
        <translation>es gibt keinen Befehl an</translation>
    </message>
    <message>
        <source>let its initPluginCommands() declare at least one</source>
        <translation>lassen Sie sein initPluginCommands() wenigstens einen angeben</translation>
    </message>
    <message>
        <source>it failed while it was loaded (%1)</source>
        <translation>es scheiterte beim Laden (%1)</translation>
    </message>
    <message>
        <source>ask its maker for a mended one</source>
        <translation>bitten Sie den Hersteller um ein berichtigtes</translation>
    </message>
    <message>
        <source>it failed while it was loaded</source>
        <translation>es scheiterte beim Laden</translation>
    </message>
    <message>
        <source>%1 belongs to %2, who is neither root nor this user nor the owner of this program</source>
        <translation>%1 gehört %2, und das ist weder root noch dieser Benutzer noch der Eigentümer dieses Programms</translation>
    </message>
    <message>
        <source>when you trust it, make it yours: sudo chown $USER &quot;%1&quot;; otherwise take another one</source>
        <translation>wenn Sie ihm trauen, machen Sie es zu Ihrem: sudo chown $USER &quot;%1&quot;; sonst nehmen Sie ein anderes</translation>
    </message>
    <message>
        <source>every user may write to %1</source>
        <translation>jeder Benutzer darf in %1 schreiben</translation>
    </message>
    <message>
        <source>see that nobody has changed it, then take that right away: chmod o-w &quot;%1&quot;</source>
        <translation>prüfen Sie, dass niemand etwas geändert hat, und nehmen Sie dieses Recht weg: chmod o-w &quot;%1&quot;</translation>
    </message>
    <message>
        <source>everybody in the group %2 may write to %1</source>
        <translation>jeder in der Gruppe %2 darf in %1 schreiben</translation>
    </message>
    <message>
        <source>see that nobody has changed it, then take that right away: chmod g-w &quot;%1&quot;</source>
        <translation>prüfen Sie, dass niemand etwas geändert hat, und nehmen Sie dieses Recht weg: chmod g-w &quot;%1&quot;</translation>
    </message>
</context>
</TS>
