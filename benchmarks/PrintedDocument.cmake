# cmake -DPROGRAM=program -DDOCUMENT=document.md -P PrintedDocument.cmake: the document is what the program prints.
execute_process(COMMAND "${PROGRAM}" OUTPUT_VARIABLE printed RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${PROGRAM} ends with ${status}")
endif()
file(READ "${DOCUMENT}" document)
if(NOT printed STREQUAL document)
    message(FATAL_ERROR "${DOCUMENT} is not what ${PROGRAM} prints. Look at the difference; to renew it:\n"
        "  ${PROGRAM} > ${DOCUMENT}")
endif()
