<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru">
    <context>
        <name>Test</name>
        <message>
            <source>bye</source>
            <translation>poka</translation>
        </message>
    </context>
</TS>
