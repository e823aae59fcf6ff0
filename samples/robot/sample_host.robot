*** Settings ***
Resource            ghosthand.resource
Suite Setup         Start Sample Host
Suite Teardown      End Program
Test Teardown       Tidy Up

*** Test Cases ***
A Setting Is Kept While The Dialog Is Open
    Open Settings
    Change Setting    New setting

A Check Box Is Set And Cleared
    Open Settings
    Set Check Box    ${CHECK BOX}    ${True}
    Check Box Should Be    ${CHECK BOX}    ${True}
    Set Check Box    ${CHECK BOX}    ${False}
    Check Box Should Be    ${CHECK BOX}    ${False}

A Tree Item Is Selected By Its Path
    Open Page    ${TREES}
    Select Tree Item    ${PARTS TREE}    Box
    Selected Tree Item Should Be    ${PARTS TREE}    Box
