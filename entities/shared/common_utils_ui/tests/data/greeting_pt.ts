<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt">
    <context>
        <name>Test</name>
        <message>
            <source>hello</source>
            <translation>ola</translation>
        </message>
    </context>
</TS>
