<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>CommandLine</name>
    <message>
        <source>Usage: %1 [options] COMMAND …

Runs a tightening workplace with one wireless torque wrench.

Commands (each has --help):
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>
Options, before or behind the command:
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>
Exit status: 0 done, 1 the device said no or did not answer, 2 wrong usage, 3 set-up problem.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Usage: %1 [options] %2

%3
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>
Options of this command:
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>
Options of every command:
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>see %1 --help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no option &quot;--%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unexpected value after &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>missing value after &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A configuration file; the command line goes before it. Empty: none.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows this help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no command is given</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no command &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CommandsCommand</name>
    <message>
        <source>one command can be told about, not %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>see app_workplace commands --help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: none declared</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>default</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>description</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lists what the loaded plugins offer, or tells about one command.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no plugin</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>none was loaded</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>check the folder of the plugins with --plugins</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no loaded plugin has the command &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;app_workplace commands&quot; lists what there is</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>command</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>stopped by</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Runs until it is stopped by &quot;%1&quot; (Ctrl-C).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Results</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ConfigCommand</name>
    <message>
        <source>the configuration takes no argument &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>see %1 --help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>default</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, line %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>environment, %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>command line, %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows the settings in effect and where each comes from.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writes a commented file of the defaults, to this user&apos;s own place when no other is named; - for standard output.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file %1 is not written</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it is there already</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>name another file, or move that one away</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is written; it holds the defaults.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>setting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>from</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Configuration: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Configuration: none was read; this user&apos;s own would be %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ConfigurationFile</name>
    <message>
        <source>put its value between quotes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>write true or false</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>write a whole number, without quotes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>write a number, without quotes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither true nor false</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a whole number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an object</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>write &quot;%1&quot;: {…}</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>write &quot;driver&quot;: {&quot;baudRate&quot;: 115200}</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not known</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>known are: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the configuration %1 is not used, line %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the configuration %1 cannot be read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>check the name and the rights of the file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>mend the JSON text there</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it is not a JSON object</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>write {&quot;port&quot;: &quot;…&quot;, &quot;serialId&quot;: &quot;…&quot;}</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ConfigurationText</name>
    <message>
        <source>%1 For example: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Configuration of app_workplace. Keys that begin with // are comments. The values are the defaults; an empty text stands for &quot;not said&quot;. What is given on the command line goes before it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings of the serial driver.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Console</name>
    <message>
        <source>The results cannot be written (%1): make room, or write them elsewhere.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DeviceStore</name>
    <message>
        <source>it holds no JSON object</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DriverSettings</name>
    <message>
        <source>write &quot;%1&quot; beside &quot;driver&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>known are: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no setting of the driver</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HeardWrenches</name>
    <message>
        <source>the wrench %1 was heard, but the link to it did not come about</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (%2 dBm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no wrench was heard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the wrench %1 was not heard, only %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Language</name>
    <message>
        <source>there is no language &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>choose one of: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>app_workplace %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no configuration file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>configuration file %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 ended after %2 s with exit status %3</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>NumberOptions</name>
    <message>
        <source>--%1 takes %2, not &quot;%3&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>seconds from %1 to %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Parameters</name>
    <message>
        <source>true or false</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a whole number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a whole number, 0 or more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a text (escapes: \r \n \t \\ \xHH)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a JSON object</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a JSON array</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not of the form name=value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the parameter &quot;%1&quot; is given twice</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the command &quot;%1&quot; has no parameter &quot;%2&quot;; it has: %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the parameter &quot;%1&quot; of &quot;%2&quot; takes %3, not &quot;%4&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the command &quot;%1&quot; needs the parameter &quot;%2&quot;: %3=%4</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PortsCommand</name>
    <message>
        <source>the list of ports takes no argument &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>see app_workplace ports --help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lists the serial ports of this machine.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>port</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>usable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>lasting name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>description</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>yes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This machine has no serial port; plug the adapter in and call this again.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Problem</name>
    <message>
        <source>  why: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  do:  %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RunCommand</name>
    <message>
        <source>no command of a plugin is named</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;app_workplace commands&quot; lists them</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>which wrench is to be connected is not said</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>give its serial number with --serial-id</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>[driver/]COMMAND [name=value …]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Runs one command of a plugin; &quot;app_workplace commands COMMAND&quot; tells its parameters.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>First connects to the wrench and gets it ready, as a session does.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ends the run after so long (30 when not said; none for a command that runs until stopped).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1/&quot; names nobody that runs commands</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>write &quot;driver/%1&quot; or only &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no loaded plugin has the command &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;app_workplace commands&quot; lists what there is</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;app_workplace commands %1&quot; tells more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no loaded plugin can connect to a wrench</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>name the folder of the plugins with --plugins</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the command &quot;%1&quot; did not succeed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it was ended by the time limit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>give more time with --limit, and check that the wrench is connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it was interrupted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the plugin refused it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the device said no or did not answer</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ScanCommand</name>
    <message>
        <source>a scan takes no argument &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>see app_workplace scan --help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lists the wrenches in range, the strongest signal first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ends after so long (5 when not said); 0: goes on until Ctrl-C.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no loaded plugin can scan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>name the folder of the plugins with --plugins</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>searching …</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the line is not usable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no wrench was heard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>switch the wrench on, bring it near, and check the port</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>serial number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>signal (dBm)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Settings</name>
    <message>
        <source>The serial port, or &quot;simulated&quot; (the default) for a simulator of its own.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The serial number of the wrench.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder of the plugins.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder for what is kept of a device.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writes down every byte on the line; - for standard error.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The language of the texts; that of the environment when not said.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>One JSON object a line, messages on standard error.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Results and errors only.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Also shows what is in use, all log lines, and how long it takes.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SimulatorProcess</name>
    <message>
        <source>%1 does not start: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its process crashed or was killed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its process ended with the exit status %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 and the words: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 has not said within %2 s that it is ready</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Step</name>
    <message>
        <source>open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>connect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>configure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>programs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>select</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unlock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>listen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>link</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>session</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>scan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>run</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>commands</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>command line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>configuration</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Workplace</name>
    <message>
        <source>there is no driver plugin</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no device plugin</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>none could be loaded from %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>name the folder of the plugins with --plugins</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the simulated wrench is not there</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>build or install wrench_simulator beside this program, or name a port with --port</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the simulated wrench has gone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>start again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the device&apos;s stored state %1 is not used</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>move it away, or name another folder with --data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a plugin makes no instance for this workplace</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>name another folder with --plugins</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the device&apos;s state cannot be stored in %1: %2; name another folder with --data</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WorkplaceCommand</name>
    <message>
        <source>plugins from %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
