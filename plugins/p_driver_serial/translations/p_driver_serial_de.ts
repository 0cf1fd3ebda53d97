<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>SerialDriver</name>
    <message>
        <source>&quot;setKeepAliveFonction&quot; needs a &quot;frame&quot; that is a text or a byte array; an empty one switches the keep-alive off.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;setKeepAliveFonction&quot; needs a &quot;responseFrame&quot; that is a text or a byte array and is not empty: any line would be taken for the answer otherwise.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;setTrace&quot; needs a &quot;file&quot; that is a text: a path, &quot;-&quot; for standard error, or empty to end the trace.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;write&quot; needs a &quot;frame&quot; that is a byte array or a text and is not empty.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The &quot;timeout&quot; of &quot;write&quot; is &quot;%1&quot;: it must be a number of milliseconds above 0.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The serial driver of this command has been removed: run the command on another one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>one of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The setting &quot;%1&quot; of the serial driver is %2: it must be %3.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The serial driver has no port: set &quot;port&quot; to the path of one, best a name below /dev/serial/by-id/, which survives re-plugging.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The trace cannot be written to %1 (%2): name a file in a folder that you may write to, or &quot;-&quot; for standard error.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The trace to %1 ends here, it cannot be written (%2): make room and switch it on again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The port %1 does not exist and this machine has no serial port: plug the adapter in.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The port %1 does not exist: plug the adapter in, or set &quot;port&quot; to one that does: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is no serial port: set &quot;port&quot; to one, for example below %2/.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The port %1 is in use by another device of this program (process %2): give each device a port of its own.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another program holds the port %1: %2 %3; close that program or choose another port.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another program holds the port %1, one of another user, which only root can see: run &quot;sudo lsof %2&quot; to learn which, and close it or choose another port.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The port %1 is locked by the file %2 of another user&apos;s process %3, which has ended: run &quot;sudo rm %2&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The port %1 cannot be opened (%2): check that it is a working serial port.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The port %1 does not support the configured &quot;%2&quot;: set it to what the port and the device at its other end both have.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The port %1 went away while in use: plug its adapter in again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The port %1 may not be opened by this user, nor by a group that the user could join: run &quot;sudo chown $USER %2&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The port %1 may not be opened yet: this user has been given the group %2 after logging in, so log out and in again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The port %1 may not be opened by this user: run &quot;sudo usermod -aG %2 $USER&quot; and log in again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The port %1 did not take a frame of %2 bytes within %3 ms: check the device at its other end and its flow control.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device on %1 has left the keep-alive frame unanswered %2 times: check that it is switched on and in range.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
